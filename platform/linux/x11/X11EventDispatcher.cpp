#include "platform/linux/x11/X11EventDispatcher.h"

#include <QCoreApplication>

#include <algorithm>

namespace quorvantel::platform {

X11EventHandler::X11EventHandler(X11EventDispatcher& dispatcher, X11EventRank rank)
    : m_dispatcher(dispatcher) {
    m_dispatcher.add(*this, rank);
}

X11EventHandler::~X11EventHandler() {
    m_dispatcher.remove(*this);
}

X11EventDispatcher::X11EventDispatcher() {
    qApp->installNativeEventFilter(this);
}

X11EventDispatcher::~X11EventDispatcher() {
    if (qApp != nullptr) {
        qApp->removeNativeEventFilter(this);
    }
}

bool X11EventDispatcher::nativeEventFilter(const QByteArray& /*eventType*/, void* message,
                                           qintptr* /*result*/) {
    const auto& event = *static_cast<const xcb_generic_event_t*>(message);
    // Handlers may come and go while they run, so the list is walked in a copy.
    const std::vector<Entry> handlers = m_handlers;
    return std::ranges::any_of(handlers, [&](const Entry& entry) {
        const bool isStillThere = std::ranges::find(m_handlers, entry) != m_handlers.end();
        return isStillThere && entry.handler->handleEvent(event);
    });
}

void X11EventDispatcher::add(X11EventHandler& handler, X11EventRank rank) {
    const auto next = std::ranges::upper_bound(m_handlers, rank, {}, &Entry::rank);
    m_handlers.insert(next, {rank, &handler});
}

void X11EventDispatcher::remove(const X11EventHandler& handler) {
    std::erase_if(m_handlers, [&](const Entry& entry) { return entry.handler == &handler; });
}

} // namespace quorvantel::platform
