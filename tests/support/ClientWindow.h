#pragma once

#include "support/KeyboardMap.h"
#include "support/XConnection.h"

#include <QByteArray>
#include <QRect>

namespace quorvantel::testing {

/// An ordinary application as the window manager sees it: a client with one managed window, which
/// writes down the keys and clicks that reach it.
class ClientWindow {
public:
    /// Shows the window and returns once it is active and has the keyboard focus. Throws
    /// std::runtime_error when that does not happen.
    ClientWindow(const QByteArray& display, const QRect& geometry);
    ClientWindow(const ClientWindow&) = delete;
    ClientWindow& operator=(const ClientWindow&) = delete;

    xcb_window_t id() const { return m_window; }

    /// The Latin-1 characters of all keys pressed in the window up to now, without regard to
    /// modifiers other than Shift; keys that bear no such character leave no trace.
    QByteArray typed();

    /// How many button presses reached the window up to now.
    int clicks();

private:
    void readEvents();

    XConnection m_connection;
    KeyboardMap m_map;
    xcb_window_t m_window;
    QByteArray m_typed;
    int m_clicks = 0;
};

} // namespace quorvantel::testing
