#include "platform/linux/x11/X11Display.h"

#include <QGuiApplication>

#include <cstring>

namespace quorvantel::platform {

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

std::uint8_t X11Display::extensionOpcode(xcb_extension_t* extension) const {
    const auto* const data = xcb_get_extension_data(connection, extension);
    return data != nullptr && data->present != 0 ? data->major_opcode : 0;
}

} // namespace quorvantel::platform
