#include "platform/linux/FurtherStarts.h"

#include "platform/linux/start/InstanceClaim.h"

#include <sys/socket.h>

#include <array>
#include <utility>

namespace quorvantel::platform {

FurtherStarts::FurtherStarts(FirstInstance instance) : m_instance(std::move(instance)) {}

void FurtherStarts::receive(Handler handler) {
    if (!m_instance.listener.isOpen()) {
        return;
    }
    m_handler = std::move(handler);
    m_arrivals =
        std::make_unique<QSocketNotifier>(m_instance.listener.get(), QSocketNotifier::Read);
    connect(m_arrivals.get(), &QSocketNotifier::activated, this, &FurtherStarts::admit);
}

void FurtherStarts::admit() {
    auto connection = std::make_shared<FileDescriptor>(
        ::accept4(m_instance.listener.get(), nullptr, nullptr, SOCK_CLOEXEC | SOCK_NONBLOCK));
    if (!connection->isOpen()) {
        return;
    }
    // The start may not have sent its request yet, and nothing here waits for it.
    auto* const request = new QSocketNotifier(connection->get(), QSocketNotifier::Read, this);
    connect(request, &QSocketNotifier::activated, this, [this, request, connection] {
        request->setEnabled(false);
        answer(*connection);
        request->deleteLater();
    });
}

void FurtherStarts::answer(const FileDescriptor& connection) {
    std::array<char, maximumRequestSize> message{};
    const ssize_t length = ::recv(connection.get(), message.data(), message.size(), 0);
    const auto request =
        StartRequest::decoded({message.data(), length > 0 ? static_cast<std::size_t>(length) : 0});
    if (request) {
        const std::string reply = encodedAnswer(m_handler(*request).toStdString());
        ::send(connection.get(), reply.data(), reply.size(), MSG_NOSIGNAL);
    }
}

} // namespace quorvantel::platform
