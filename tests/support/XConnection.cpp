#include "support/XConnection.h"

#include <algorithm>
#include <span>
#include <stdexcept>

namespace quorvantel::testing {

XConnection::XConnection(const QByteArray& display)
    : m_connection(xcb_connect(display.constData(), nullptr)) {
    if (xcb_connection_has_error(get()) != 0) {
        throw std::runtime_error("no X server at display '" + display.toStdString() + "'");
    }
    m_screen = xcb_setup_roots_iterator(xcb_get_setup(get())).data;
}

xcb_atom_t XConnection::atom(const QByteArray& name) const {
    const auto cookie =
        xcb_intern_atom(get(), 0, static_cast<std::uint16_t>(name.size()), name.constData());
    const XReply<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(get(), cookie, nullptr));
    return reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
}

std::vector<std::uint32_t> XConnection::property(xcb_window_t window,
                                                 const QByteArray& name) const {
    const auto cookie =
        xcb_get_property(get(), 0, window, atom(name), XCB_GET_PROPERTY_TYPE_ANY, 0, 1024);
    const XReply<xcb_get_property_reply_t> reply(xcb_get_property_reply(get(), cookie, nullptr));
    if (!reply || reply->format != 32) {
        return {};
    }
    const auto* values = static_cast<const std::uint32_t*>(xcb_get_property_value(reply.get()));
    const std::span<const std::uint32_t> span(values, reply->value_len);
    return {span.begin(), span.end()};
}

QByteArray XConnection::text(xcb_window_t window, const QByteArray& name) const {
    const auto cookie =
        xcb_get_property(get(), 0, window, atom(name), XCB_GET_PROPERTY_TYPE_ANY, 0, 1024);
    const XReply<xcb_get_property_reply_t> reply(xcb_get_property_reply(get(), cookie, nullptr));
    return reply ? QByteArray(static_cast<const char*>(xcb_get_property_value(reply.get())),
                              xcb_get_property_value_length(reply.get()))
                 : QByteArray();
}

void XConnection::request(xcb_window_t window, const QByteArray& name,
                          const std::array<std::uint32_t, 3>& arguments) const {
    xcb_client_message_event_t message{};
    message.response_type = XCB_CLIENT_MESSAGE;
    message.format = 32;
    message.window = window;
    message.type = atom(name);
    std::ranges::copy(arguments, message.data.data32);
    xcb_send_event(get(), 0, root(),
                   XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT,
                   reinterpret_cast<const char*>(&message));
    synchronize();
}

void XConnection::synchronize() const {
    const XReply<xcb_get_input_focus_reply_t> reply(
        xcb_get_input_focus_reply(get(), xcb_get_input_focus(get()), nullptr));
}

} // namespace quorvantel::testing
