#include "platform/linux/wayland/WaylandConnection.h"

#include "platform/linux/wayland/WaylandQueue.h"

#include <QGuiApplication>
#include <QRegion>
#include <QScreen>
#include <QWindow>
#include <qpa/qplatformnativeinterface.h>
#include <qpa/qplatformscreen.h>

#include <wayland-client-protocol.h>

namespace quorvantel::platform {

namespace {

/// Enough for a compositor that is busy.
constexpr std::chrono::milliseconds patience{500};

QPlatformNativeInterface& toolkit() {
    return *QGuiApplication::platformNativeInterface();
}

} // namespace

std::unique_ptr<WaylandConnection> WaylandConnection::ofToolkit() {
    if (!QGuiApplication::platformName().startsWith(QStringLiteral("wayland"))) {
        return nullptr;
    }
    void* const display = toolkit().nativeResourceForIntegration(QByteArrayLiteral("wl_display"));
    return std::unique_ptr<WaylandConnection>(
        new WaylandConnection(*static_cast<wl_display*>(display)));
}

WaylandConnection::WaylandConnection(wl_display& display)
    : m_display(display),
      m_globals(display),
      m_compositor(m_globals.bind<wl_compositor>(wl_compositor_interface, {1, 4})) {}

WaylandConnection::~WaylandConnection() {
    // A thread of the toolkit's reads what comes, as soon as the main thread has announced that to
    // the library. Ended between the two, Qt 6.4 never takes the announcement back, and its other
    // thread waits for it for ever. To read an answer here is to wait for both.
    bool isAnswered = false;
    const std::function<void()> noteAnswer = [&isAnswered] { isAnswered = true; };
    const auto answer = afterRequests(noteAnswer);
    WaylandQueue queue(m_display, *reinterpret_cast<wl_proxy*>(answer.get()));
    queue.dispatchUntil([&isAnswered] { return isAnswered; }, patience);
}

wl_surface* WaylandConnection::surfaceOf(QWindow& window) {
    // Qt would make a window that has none yet.
    return window.handle() == nullptr ? nullptr
                                      : static_cast<wl_surface*>(toolkit().nativeResourceForWindow(
                                            QByteArrayLiteral("surface"), &window));
}

wl_output* WaylandConnection::outputOf(QScreen& screen) {
    // While the compositor has no outputs, Qt makes a screen up.
    if (screen.handle()->isPlaceholder()) {
        return nullptr;
    }
    return static_cast<wl_output*>(
        toolkit().nativeResourceForScreen(QByteArrayLiteral("output"), &screen));
}

WaylandPointer<wl_region> WaylandConnection::makeRegion(const QRegion& region) const {
    WaylandPointer<wl_region> result(wl_compositor_create_region(m_compositor.get()));
    for (const QRect& part : region) {
        wl_region_add(result.get(), part.x(), part.y(), part.width(), part.height());
    }
    return result;
}

WaylandPointer<wl_callback>
WaylandConnection::afterRequests(const std::function<void()>& handler) const {
    static constexpr wl_callback_listener listener{
        .done =
            [](void* called, wl_callback* /*callback*/, std::uint32_t /*data*/) {
                (*static_cast<const std::function<void()>*>(called))();
            },
    };
    WaylandPointer<wl_callback> callback(wl_display_sync(&m_display));
    wl_callback_add_listener(callback.get(), &listener,
                             const_cast<std::function<void()>*>(&handler));
    return callback;
}

void WaylandConnection::flush() const {
    wl_display_flush(&m_display);
}

} // namespace quorvantel::platform
