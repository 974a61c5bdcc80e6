#include "support/XDesktop.h"

#include <algorithm>
#include <cstring>
#include <iterator>
#include <span>
#include <stdexcept>

namespace quorvantel::testing {

xcb_window_t XDesktop::activeWindow() const {
    const std::vector<std::uint32_t> active =
        m_connection.property(m_connection.root(), "_NET_ACTIVE_WINDOW");
    return active.empty() ? xcb_window_t{XCB_WINDOW_NONE} : active.front();
}

QByteArray XDesktop::activeTitle() const {
    return m_connection.text(activeWindow(), "_NET_WM_NAME");
}

xcb_window_t XDesktop::inputFocus() const {
    const XReply<xcb_get_input_focus_reply_t> reply(xcb_get_input_focus_reply(
        m_connection.get(), xcb_get_input_focus(m_connection.get()), nullptr));
    return reply ? reply->focus : xcb_window_t{XCB_WINDOW_NONE};
}

bool XDesktop::isKeyboardGrabbed() const {
    // The protocol has no question for this; one's own grab is refused while another holds.
    xcb_connection_t* connection = m_connection.get();
    const XReply<xcb_grab_keyboard_reply_t> reply(xcb_grab_keyboard_reply(
        connection,
        xcb_grab_keyboard(connection, 0, m_connection.root(), XCB_CURRENT_TIME, XCB_GRAB_MODE_ASYNC,
                          XCB_GRAB_MODE_ASYNC),
        nullptr));
    xcb_ungrab_keyboard(connection, XCB_CURRENT_TIME);
    m_connection.synchronize();
    return reply && reply->status == XCB_GRAB_STATUS_ALREADY_GRABBED;
}

bool XDesktop::isAnyKeyDown() const {
    const XReply<xcb_query_keymap_reply_t> reply(
        xcb_query_keymap_reply(m_connection.get(), xcb_query_keymap(m_connection.get()), nullptr));
    return reply && std::ranges::any_of(reply->keys, [](std::uint8_t keys) { return keys != 0; });
}

std::vector<xcb_window_t> XDesktop::overrideRedirectWindows() const {
    const XReply<xcb_query_tree_reply_t> tree(xcb_query_tree_reply(
        m_connection.get(), xcb_query_tree(m_connection.get(), m_connection.root()), nullptr));
    std::vector<xcb_window_t> visible;
    if (tree) {
        const std::span<const xcb_window_t> children(xcb_query_tree_children(tree.get()),
                                                     tree->children_len);
        std::ranges::copy_if(children, std::back_inserter(visible), [this](xcb_window_t window) {
            return isVisibleOverrideRedirect(window);
        });
    }
    return visible;
}

bool XDesktop::isVisibleOverrideRedirect(xcb_window_t window) const {
    const XReply<xcb_get_window_attributes_reply_t> attributes(xcb_get_window_attributes_reply(
        m_connection.get(), xcb_get_window_attributes(m_connection.get(), window), nullptr));
    const std::optional<QRect> where = geometry(window);
    const QRect screen(0, 0, m_connection.screen().width_in_pixels,
                       m_connection.screen().height_in_pixels);
    return attributes && attributes->override_redirect != 0 &&
           attributes->map_state == XCB_MAP_STATE_VIEWABLE &&
           attributes->_class == XCB_WINDOW_CLASS_INPUT_OUTPUT && where &&
           screen.intersects(*where);
}

std::optional<QRect> XDesktop::geometry(xcb_window_t window) const {
    xcb_connection_t* connection = m_connection.get();
    const XReply<xcb_get_geometry_reply_t> size(
        xcb_get_geometry_reply(connection, xcb_get_geometry(connection, window), nullptr));
    const XReply<xcb_translate_coordinates_reply_t> origin(xcb_translate_coordinates_reply(
        connection, xcb_translate_coordinates(connection, window, m_connection.root(), 0, 0),
        nullptr));
    if (!size || !origin) {
        return std::nullopt;
    }
    return QRect(origin->dst_x, origin->dst_y, size->width, size->height);
}

QImage XDesktop::screenshot(const QRect& rectangle) const {
    xcb_connection_t* connection = m_connection.get();
    const XReply<xcb_get_image_reply_t> reply(xcb_get_image_reply(
        connection,
        xcb_get_image(connection, XCB_IMAGE_FORMAT_Z_PIXMAP, m_connection.root(),
                      static_cast<std::int16_t>(rectangle.x()),
                      static_cast<std::int16_t>(rectangle.y()),
                      static_cast<std::uint16_t>(rectangle.width()),
                      static_cast<std::uint16_t>(rectangle.height()), ~0U),
        nullptr));
    QImage image(rectangle.size(), QImage::Format_RGB32);
    if (!reply || xcb_get_image_data_length(reply.get()) != image.sizeInBytes()) {
        throw std::runtime_error("the X server gave no 32-bit image of that rectangle");
    }
    std::memcpy(image.bits(), xcb_get_image_data(reply.get()),
                static_cast<std::size_t>(image.sizeInBytes()));
    return image;
}

} // namespace quorvantel::testing
