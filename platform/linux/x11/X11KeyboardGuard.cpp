#include "platform/linux/x11/X11KeyboardGuard.h"

#include <sys/timerfd.h>
#include <unistd.h>

#include <csignal>
#include <cstdint>
#include <utility>

namespace quorvantel::platform {

using namespace std::chrono_literals;

/// An event source without events, which GLib asks before and after it waits for those of others.
struct X11KeyboardGuard::TurnSource {
    GSource base;
    const X11KeyboardGuard* guard;

    static const X11KeyboardGuard& guardOf(GSource* source) {
        return *reinterpret_cast<TurnSource*>(source)->guard;
    }
};

const GSourceFuncs X11KeyboardGuard::turnFunctions{
    .prepare = [](GSource* source, gint* /*timeout*/) -> gboolean {
        TurnSource::guardOf(source).setAlarm(0ns);
        return FALSE;
    },
    .check = [](GSource* source) -> gboolean {
        TurnSource::guardOf(source).setAlarm(limit);
        return FALSE;
    },
    .dispatch = [](GSource*, GSourceFunc, gpointer) -> gboolean { return G_SOURCE_CONTINUE; },
    .finalize = nullptr,
    .closure_callback = nullptr,
    .closure_marshal = nullptr,
};

X11KeyboardGuard::X11KeyboardGuard(const X11Display& display, std::function<void()> onFreed)
    : m_display(display),
      m_onFreed(std::move(onFreed)),
      m_alarm(::timerfd_create(CLOCK_MONOTONIC, TFD_CLOEXEC)),
      m_turns(g_source_new(const_cast<GSourceFuncs*>(&turnFunctions), sizeof(TurnSource))) {
    reinterpret_cast<TurnSource*>(m_turns)->guard = this;
    // Of the sources, those that come after one with an event may not be asked.
    g_source_set_priority(m_turns, G_MININT);
    g_source_attach(m_turns, nullptr);

    // Signals are the main thread's; a thread begins with the mask of the one that starts it.
    sigset_t allSignals;
    sigset_t before;
    sigfillset(&allSignals);
    ::pthread_sigmask(SIG_SETMASK, &allSignals, &before);
    m_thread = std::thread([this] { watch(); });
    ::pthread_sigmask(SIG_SETMASK, &before, nullptr);
    setAlarm(limit);
}

X11KeyboardGuard::~X11KeyboardGuard() {
    g_source_destroy(m_turns);
    g_source_unref(m_turns);
    m_isEnding = true;
    setAlarm(1ns);
    m_thread.join();
    ::close(m_alarm);
}

void X11KeyboardGuard::setAlarm(std::chrono::nanoseconds delay) const {
    const auto seconds = std::chrono::duration_cast<std::chrono::seconds>(delay);
    const timespec time{seconds.count(), (delay - seconds).count()};
    // Repeated, for a hotkey may come later than what keeps the main thread.
    const itimerspec alarm{.it_interval = time, .it_value = time};
    ::timerfd_settime(m_alarm, 0, &alarm, nullptr);
}

void X11KeyboardGuard::watch() {
    std::uint64_t rings = 0;
    while (::read(m_alarm, &rings, sizeof rings) == sizeof rings && !m_isEnding) {
        freeKeyboard();
    }
}

void X11KeyboardGuard::freeKeyboard() {
    xcb_allow_events(m_display.connection, XCB_ALLOW_ASYNC_KEYBOARD, XCB_CURRENT_TIME);
    xcb_ungrab_keyboard(m_display.connection, XCB_CURRENT_TIME);
    xcb_flush(m_display.connection);
    if (!m_reportPending.exchange(true)) {
        QMetaObject::invokeMethod(
            &m_context,
            [this] {
                m_reportPending = false;
                m_onFreed();
            },
            Qt::QueuedConnection);
    }
}

} // namespace quorvantel::platform
