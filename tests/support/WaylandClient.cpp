#include "support/WaylandClient.h"

#include "support/WaitUntil.h"

#include <stdexcept>

namespace quorvantel::testing {
namespace {

using namespace Qt::StringLiterals;

ChildProcess::Launch launch(const WaylandCompositor& compositor, QTemporaryFile& log) {
    if (!log.open()) {
        throw std::runtime_error("no file for what the client hears");
    }
    ChildProcess::Launch launch{.program = QStringLiteral(WAYLAND_CLIENT_PROGRAM),
                                .outputPath = log.fileName()};
    launch.environment.insert(u"WAYLAND_DISPLAY"_s, compositor.display());
    launch.environment.insert(u"QT_QPA_PLATFORM"_s, u"wayland"_s);
    return launch;
}

/// Whether the middle of an output is in a client's window, a little apart from where a pointer may
/// rest.
bool isShown(const WaylandCompositor& compositor) {
    const QImage image = compositor.screenshot();
    const int outputs = compositor.options().outputs;
    const int width = image.width() / outputs;
    for (int output = 0; output < outputs; ++output) {
        const QPoint place(output * width + width * 5 / 9, image.height() * 5 / 9);
        if (image.pixel(place) == WaylandClient::color) {
            return true;
        }
    }
    return false;
}

} // namespace

WaylandClient::WaylandClient(const WaylandCompositor& compositor)
    : m_process(launch(compositor, m_log)) {
    // A compositor may give a new window the keyboard before it has found its place.
    if (!waitUntil([&] { return isActive() && isShown(compositor); })) {
        throw std::runtime_error("the compositor does not show the client's window");
    }
}

QByteArray WaylandClient::typed() const {
    QByteArray typed;
    for (const QByteArray& event : events()) {
        if (event.startsWith("key ")) {
            typed += event.sliced(4);
        }
    }
    return typed;
}

qsizetype WaylandClient::clicks() const {
    return events().count("click");
}

bool WaylandClient::isActive() const {
    const QByteArrayList heard = events();
    return heard.lastIndexOf("active") > heard.lastIndexOf("inactive");
}

QByteArrayList WaylandClient::events() const {
    QFile log(m_log.fileName());
    return log.open(QIODevice::ReadOnly) ? log.readAll().split('\n') : QByteArrayList();
}

} // namespace quorvantel::testing
