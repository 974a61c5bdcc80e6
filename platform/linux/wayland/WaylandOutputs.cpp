#include "platform/linux/wayland/WaylandOutputs.h"

#include "platform/linux/wayland/WaylandQueue.h"

#include <QGuiApplication>
#include <QScreen>

#include <wayland-client-protocol.h>

#include <algorithm>
#include <chrono>

namespace quorvantel::platform {

namespace {

/// For the compositor's answer.
constexpr std::chrono::milliseconds patience{100};

/// What an output is told to be.
struct Description {
    QRect mode;
    bool isComplete = false;
};

constexpr wl_output_listener makeListener() {
    // The library may know of further events, which this version of the output does not send.
    wl_output_listener known{};
    known.geometry = [](void* description, wl_output* /*output*/, std::int32_t x, std::int32_t y,
                        std::int32_t /*width*/, std::int32_t /*height*/, std::int32_t /*subpixel*/,
                        const char* /*make*/, const char* /*model*/, std::int32_t /*transform*/) {
        static_cast<Description*>(description)->mode.moveTopLeft({x, y});
    };
    known.mode = [](void* description, wl_output* /*output*/, std::uint32_t flags,
                    std::int32_t width, std::int32_t height, std::int32_t /*refresh*/) {
        if ((flags & WL_OUTPUT_MODE_CURRENT) != 0) {
            static_cast<Description*>(description)->mode.setSize({width, height});
        }
    };
    known.done = [](void* description, wl_output* /*output*/) {
        static_cast<Description*>(description)->isComplete = true;
    };
    known.scale = [](void* /*description*/, wl_output* /*output*/, std::int32_t /*factor*/) {};
    return known;
}

} // namespace

QRect WaylandOutputs::geometryOf(const QScreen& screen) const {
    const QRect told = screen.geometry();
    return isToldInPixels(screen) ? QRect(told.topLeft(), (told.size() / screen.devicePixelRatio()))
                                  : told;
}

bool WaylandOutputs::isToldInPixels(const QScreen& screen) const {
    if (screen.devicePixelRatio() <= 1) {
        return false;
    }
    QList<QRect> told;
    for (const QScreen* const each : QGuiApplication::screens()) {
        told += each->geometry();
    }
    if (m_told != told) {
        m_told = told;
        ask();
    }
    return std::ranges::any_of(m_modes, [output = screen.geometry()](const QRect& mode) {
        // It may be turned.
        return mode.topLeft() == output.topLeft() &&
               (mode.size() == output.size() || mode.size().transposed() == output.size());
    });
}

void WaylandOutputs::ask() const {
    static constexpr wl_output_listener listener = makeListener();
    m_modes.clear();
    for (auto& output : m_connection.globals().bindAll<wl_output>(wl_output_interface, {2, 3})) {
        Description description;
        wl_output_add_listener(output.get(), &listener, &description);
        WaylandQueue queue(m_connection.display(), *reinterpret_cast<wl_proxy*>(output.get()));
        if (queue.dispatchUntil([&description] { return description.isComplete; }, patience)) {
            m_modes.push_back(description.mode);
        }
    }
}

} // namespace quorvantel::platform
