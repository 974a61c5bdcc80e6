#include "platform/linux/x11/X11Display.h"

#include <QGuiApplication>

#include <cstring>

namespace quorvantel::platform {

namespace {

/// More than the windows on anybody's desktop.
constexpr std::uint32_t maximumValues = 4096;

} // namespace

std::optional<X11Display> X11Display::current() {
    const auto* const x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    if (x11 == nullptr) {
        return std::nullopt;
    }
    xcb_connection_t* const connection = x11->connection();
    return X11Display{connection, xcb_setup_roots_iterator(xcb_get_setup(connection)).data->root};
}

xcb_atom_t X11Display::atom(const char* name) const {
    const auto cookie =
        xcb_intern_atom(connection, 0, static_cast<std::uint16_t>(std::strlen(name)), name);
    const XcbPointer<xcb_intern_atom_reply_t> reply(
        xcb_intern_atom_reply(connection, cookie, nullptr));
    return reply ? reply->atom : static_cast<xcb_atom_t>(XCB_ATOM_NONE);
}

std::vector<std::uint32_t> X11Display::property(xcb_window_t window, xcb_atom_t name) const {
    const auto cookie =
        xcb_get_property(connection, 0, window, name, XCB_GET_PROPERTY_TYPE_ANY, 0, maximumValues);
    const XcbPointer<xcb_get_property_reply_t> reply(
        xcb_get_property_reply(connection, cookie, nullptr));
    if (!reply || reply->format != 32) {
        return {};
    }
    const auto* const values =
        static_cast<const std::uint32_t*>(xcb_get_property_value(reply.get()));
    return {values, values + reply->value_len};
}

bool X11Display::isOwn(xcb_window_t window) const {
    const xcb_setup_t& setup = *xcb_get_setup(connection);
    return (window & ~setup.resource_id_mask) == setup.resource_id_base;
}

std::uint8_t X11Display::extensionOpcode(xcb_extension_t* extension) const {
    const auto* const data = xcb_get_extension_data(connection, extension);
    return data != nullptr && data->present != 0 ? data->major_opcode : 0;
}

} // namespace quorvantel::platform
