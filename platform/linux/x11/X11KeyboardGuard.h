#pragma once

#include "platform/linux/x11/X11Display.h"

#include <QObject>

#include <glib.h>

#include <atomic>
#include <chrono>
#include <functional>
#include <thread>

namespace quorvantel::platform {

/// Frees the keyboard when the main thread does not come back to its event loop in time, whatever
/// it waits for: while a key of a synchronous grab waits for the launcher, so does every other
/// application's.
///
/// Keys that the server kept until then still take their way to whom they were meant for, the
/// panel or the application in front. With no grab in force there is nothing to free, so the guard
/// need not know of any, nor of a hotkey that the main thread has yet to read.
///
/// Its thread does nothing else and touches nothing of the launcher's but the connection, which any
/// thread may use; it sleeps for as long as the event loop turns. It sees the turns of GLib's
/// default main context, so Qt has to run on that. A stopped process is beyond its help.
///
/// At most one hundred milliseconds are left for the thread to be scheduled and for the server, so
/// that nobody waits for longer than half a second.
class X11KeyboardGuard {
public:
    /// How long the main thread may stay away.
    static constexpr std::chrono::milliseconds limit{400};

    /// `onFreed` runs on the main thread once that is back. Whoever had a grab has lost it then.
    X11KeyboardGuard(const X11Display& display, std::function<void()> onFreed);
    X11KeyboardGuard(const X11KeyboardGuard&) = delete;
    X11KeyboardGuard& operator=(const X11KeyboardGuard&) = delete;
    ~X11KeyboardGuard();

private:
    struct TurnSource;
    static const GSourceFuncs turnFunctions;

    void setAlarm(std::chrono::nanoseconds delay) const;
    void watch();
    void freeKeyboard();

    X11Display m_display;
    std::function<void()> m_onFreed;
    /// A timer of the system's: setting it wakes nobody.
    int m_alarm;
    GSource* m_turns;
    std::atomic_bool m_isEnding = false;
    std::atomic_bool m_reportPending = false;
    QObject m_context;
    std::thread m_thread;
};

} // namespace quorvantel::platform
