#pragma once

#include "support/XConnection.h"

#include <QImage>
#include <QRect>

#include <optional>
#include <vector>

namespace quorvantel::testing {

/// What a user would see on an X display, read from the server itself. Geometry is in pixels from
/// the top-left corner of the root window.
class XDesktop {
public:
    explicit XDesktop(const XConnection& connection) : m_connection(connection) {}

    /// The window manager's active window (`_NET_ACTIVE_WINDOW`, Extended Window Manager Hints);
    /// XCB_WINDOW_NONE when there is none.
    xcb_window_t activeWindow() const;

    /// The active window's title (`_NET_WM_NAME`) in UTF-8; empty when there is none.
    QByteArray activeTitle() const;

    /// The window with the keyboard focus of the server.
    xcb_window_t inputFocus() const;

    /// Whether a client has grabbed the keyboard, as a panel or a menu does.
    bool isKeyboardGrabbed() const;

    /// Whether the server holds a key for pressed. The keys that it keeps for a client with a
    /// synchronous grab are yet to come.
    bool isAnyKeyDown() const;

    /// The mapped windows that no window manager manages, bottommost first, such as panels, menus
    /// and tooltips. Windows wholly off the screen are left out.
    std::vector<xcb_window_t> overrideRedirectWindows() const;

    /// Where a window is; absent when there is no such window.
    std::optional<QRect> geometry(xcb_window_t window) const;

    /// What the screen shows in a rectangle, which has to lie within the root window.
    QImage screenshot(const QRect& rectangle) const;

private:
    bool isVisibleOverrideRedirect(xcb_window_t window) const;

    const XConnection& m_connection;
};

} // namespace quorvantel::testing
