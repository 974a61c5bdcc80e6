#include "platform/linux/x11/X11WindowBackdrop.h"

#include <QRegion>
#include <QWindow>

#include <algorithm>
#include <span>
#include <string_view>
#include <vector>

namespace quorvantel::platform {

namespace {

xcb_window_t idOf(const QWindow& window) {
    return static_cast<xcb_window_t>(window.winId());
}

} // namespace

X11WindowBackdrop::X11WindowBackdrop(const X11Display& display)
    // Extended Window Manager Hints: the compositing manager of the screen owns this selection.
    : m_display(display),
      m_managerSelection(display.atom("_NET_WM_CM_S0")),
      m_blurRegion(display.atom("_KDE_NET_WM_BLUR_BEHIND_REGION")) {}

bool X11WindowBackdrop::castsShadows() const {
    const xcb_window_t manager = compositingManager();
    return manager != XCB_WINDOW_NONE && isPicom(manager);
}

bool X11WindowBackdrop::offersBlur() const {
    const xcb_window_t manager = compositingManager();
    return manager != XCB_WINDOW_NONE && (blursOnRequest() || isPicom(manager));
}

void X11WindowBackdrop::setBlurBehind(QWindow& window, const QRegion& region) {
    if (region.isEmpty()) {
        xcb_delete_property(m_display.connection, idOf(window), m_blurRegion);
        return;
    }
    std::vector<std::uint32_t> pixels;
    for (const QRect& rectangle : region) {
        for (const int value :
             {rectangle.x(), rectangle.y(), rectangle.width(), rectangle.height()}) {
            pixels.push_back(static_cast<std::uint32_t>(qRound(value * window.devicePixelRatio())));
        }
    }
    xcb_change_property(m_display.connection, XCB_PROP_MODE_REPLACE, idOf(window), m_blurRegion,
                        XCB_ATOM_CARDINAL, 32, static_cast<std::uint32_t>(pixels.size()),
                        pixels.data());
}

xcb_window_t X11WindowBackdrop::compositingManager() const {
    const XcbPointer<xcb_get_selection_owner_reply_t> reply(xcb_get_selection_owner_reply(
        m_display.connection, xcb_get_selection_owner(m_display.connection, m_managerSelection),
        nullptr));
    return reply ? reply->owner : static_cast<xcb_window_t>(XCB_WINDOW_NONE);
}

bool X11WindowBackdrop::blursOnRequest() const {
    const XcbPointer<xcb_list_properties_reply_t> reply(xcb_list_properties_reply(
        m_display.connection, xcb_list_properties(m_display.connection, m_display.root), nullptr));
    if (!reply) {
        return false;
    }
    const std::span properties(xcb_list_properties_atoms(reply.get()), reply->atoms_len);
    return std::ranges::find(properties, m_blurRegion) != properties.end();
}

bool X11WindowBackdrop::isPicom(xcb_window_t manager) const {
    constexpr std::uint32_t maximumLength = 16;
    const XcbPointer<xcb_get_property_reply_t> reply(
        xcb_get_property_reply(m_display.connection,
                               xcb_get_property(m_display.connection, 0, manager, XCB_ATOM_WM_NAME,
                                                XCB_ATOM_STRING, 0, maximumLength),
                               nullptr));
    if (!reply) {
        return false;
    }
    const std::string_view name(
        static_cast<const char*>(xcb_get_property_value(reply.get())),
        static_cast<std::size_t>(xcb_get_property_value_length(reply.get())));
    return name == "picom";
}

} // namespace quorvantel::platform
