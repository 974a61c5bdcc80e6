#include "platform/linux/x11/X11Selection.h"

#include "platform/linux/x11/X11EventHandler.h"

#include <xcb/xfixes.h>

namespace quorvantel::platform {

X11Selection::X11Selection(const X11Display& display, const char* name)
    : m_display(display), m_name(display.atom(name)) {
    xcb_connection_t* const connection = display.connection;
    const auto* const extension = xcb_get_extension_data(connection, &xcb_xfixes_id);
    if (extension == nullptr || extension->present == 0) {
        return;
    }
    // The extension is to be greeted before its use.
    xcb_discard_reply(connection, xcb_xfixes_query_version(connection, XCB_XFIXES_MAJOR_VERSION,
                                                           XCB_XFIXES_MINOR_VERSION)
                                      .sequence);
    xcb_xfixes_select_selection_input(connection, display.root, m_name,
                                      XCB_XFIXES_SELECTION_EVENT_MASK_SET_SELECTION_OWNER |
                                          XCB_XFIXES_SELECTION_EVENT_MASK_SELECTION_WINDOW_DESTROY |
                                          XCB_XFIXES_SELECTION_EVENT_MASK_SELECTION_CLIENT_CLOSE);
    m_event = static_cast<std::uint8_t>(extension->first_event + XCB_XFIXES_SELECTION_NOTIFY);
}

xcb_window_t X11Selection::owner() const {
    const XcbPointer<xcb_get_selection_owner_reply_t> reply(xcb_get_selection_owner_reply(
        m_display.connection, xcb_get_selection_owner(m_display.connection, m_name), nullptr));
    return reply ? reply->owner : xcb_window_t{XCB_WINDOW_NONE};
}

std::optional<xcb_window_t> X11Selection::newOwner(const xcb_generic_event_t& event) const {
    if (m_event == 0 || typeOf(event) != m_event) {
        return std::nullopt;
    }
    const auto& notice = eventAs<xcb_xfixes_selection_notify_event_t>(event);
    return notice.selection == m_name ? std::optional(notice.owner) : std::nullopt;
}

} // namespace quorvantel::platform
