#include "fake-input-client-protocol.h"
#include "platform/linux/wayland/WaylandGlobals.h"
#include "virtual-keyboard-unstable-v1-client-protocol.h"
#include "wlr-virtual-pointer-unstable-v1-client-protocol.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QPointF>
#include <QSizeF>
#include <QTemporaryFile>

#include <linux/input-event-codes.h>
#include <wayland-client.h>
#include <xkbcommon/xkbcommon.h>

#include <chrono>
#include <cstdlib>
#include <cstring>
#include <iostream>
#include <optional>
#include <stdexcept>
#include <string>
#include <utility>

namespace {

using quorvantel::platform::WaylandGlobals;

template <typename Object, auto end>
struct Ender {
    void operator()(Object* object) const { end(object); }
};
template <typename Object, auto end>
using Ended = std::unique_ptr<Object, Ender<Object, end>>;

/// Also for what has no request to end it: all ends with the connection.
struct ProxyDeleter {
    void operator()(void* proxy) const { wl_proxy_destroy(static_cast<wl_proxy*>(proxy)); }
};
template <typename Object>
using Proxy = std::unique_ptr<Object, ProxyDeleter>;

std::uint32_t now() {
    using namespace std::chrono;
    return static_cast<std::uint32_t>(
        duration_cast<milliseconds>(steady_clock::now().time_since_epoch()).count());
}

/// A user of GNOME at another machine.
class RemoteDesktop {
public:
    RemoteDesktop()
        : m_session(call(QStringLiteral("/org/gnome/Mutter/RemoteDesktop"), {},
                         QStringLiteral("CreateSession"), {})
                        .value<QDBusObjectPath>()
                        .path()) {
        call(QStringLiteral("Start"), {});
        // Each device is there from the first time that it is used, and clients hear of it later.
        step({beyondAll, beyondAll});
        setKeyDown(KEY_LEFTSHIFT, true);
        setKeyDown(KEY_LEFTSHIFT, false);
    }

    void call(const QString& method, const QVariantList& arguments) const {
        call(m_session, QStringLiteral(".Session"), method, arguments);
    }

    void setKeyDown(std::uint32_t key, bool down) const {
        call(QStringLiteral("NotifyKeyboardKeycode"), {key, down});
    }

    /// On the only output: no step leads further than the edge of the one where it begins.
    void moveTo(const QPointF& position, const QSizeF& output) {
        // Only steps can be told; they begin in the corner that GNOME has no use for.
        const QPointF corner(output.width() - 1, output.height() - 1);
        step(position - std::exchange(m_pointer, position).value_or(corner));
    }

private:
    static constexpr double beyondAll = 1e5;

    void step(const QPointF& way) const {
        call(QStringLiteral("NotifyPointerMotionRelative"), {way.x(), way.y()});
    }

    QVariant call(const QString& path, const QString& part, const QString& method,
                  const QVariantList& arguments) const {
        const QString service = QStringLiteral("org.gnome.Mutter.RemoteDesktop");
        auto message = QDBusMessage::createMethodCall(service, path, service + part, method);
        message.setArguments(arguments);
        const QDBusMessage reply = QDBusConnection::sessionBus().call(message);
        if (reply.type() != QDBusMessage::ReplyMessage) {
            throw std::runtime_error(reply.errorMessage().toStdString());
        }
        return reply.arguments().value(0);
    }

    QString m_session;
    /// Absent before the first move.
    std::optional<QPointF> m_pointer;
};

/// The keyboard and the pointer of the compositor that WAYLAND_DISPLAY names.
class Devices {
public:
    Devices() : connection(wl_display_connect(nullptr)) {
        if (!connection) {
            throw std::runtime_error("the compositor refuses clients");
        }
        const WaylandGlobals globals(*connection);
        fakeInput.reset(
            globals.bind<org_kde_kwin_fake_input>(org_kde_kwin_fake_input_interface, {4, 4}));
        if (fakeInput) {
            org_kde_kwin_fake_input_authenticate(fakeInput.get(), "", "");
            return;
        }
        if (!globals.offers(zwp_virtual_keyboard_manager_v1_interface, 1)) {
            remoteDesktop.emplace();
            return;
        }
        seat.reset(globals.bind<wl_seat>(wl_seat_interface, {1, 1}));
        const Proxy<zwp_virtual_keyboard_manager_v1> keyboards(
            globals.bind<zwp_virtual_keyboard_manager_v1>(zwp_virtual_keyboard_manager_v1_interface,
                                                          {1, 1}));
        const Proxy<zwlr_virtual_pointer_manager_v1> pointers(
            globals.bind<zwlr_virtual_pointer_manager_v1>(zwlr_virtual_pointer_manager_v1_interface,
                                                          {1, 1}));
        if (!seat || !keyboards || !pointers) {
            throw std::runtime_error("the compositor takes no input from programs");
        }
        keyboard.reset(
            zwp_virtual_keyboard_manager_v1_create_virtual_keyboard(keyboards.get(), seat.get()));
        pointer.reset(
            zwlr_virtual_pointer_manager_v1_create_virtual_pointer(pointers.get(), seat.get()));
        sendKeymap();
    }

    void setKeyDown(std::uint32_t key, bool down) {
        if (fakeInput) {
            org_kde_kwin_fake_input_keyboard_key(fakeInput.get(), key, down ? 1 : 0);
            return;
        }
        if (remoteDesktop) {
            remoteDesktop->setKeyDown(key, down);
            return;
        }
        zwp_virtual_keyboard_v1_key(keyboard.get(), now(), key, down ? 1 : 0);
        // Key codes of XKB are the kernel's and eight more.
        xkb_state_update_key(state.get(), key + 8, down ? XKB_KEY_DOWN : XKB_KEY_UP);
        zwp_virtual_keyboard_v1_modifiers(
            keyboard.get(), xkb_state_serialize_mods(state.get(), XKB_STATE_MODS_DEPRESSED),
            xkb_state_serialize_mods(state.get(), XKB_STATE_MODS_LATCHED),
            xkb_state_serialize_mods(state.get(), XKB_STATE_MODS_LOCKED), 0);
    }

    void moveTo(std::uint32_t x, std::uint32_t y, std::uint32_t width, std::uint32_t height) {
        if (fakeInput) {
            org_kde_kwin_fake_input_pointer_motion_absolute(fakeInput.get(),
                                                            wl_fixed_from_int(static_cast<int>(x)),
                                                            wl_fixed_from_int(static_cast<int>(y)));
            return;
        }
        if (remoteDesktop) {
            remoteDesktop->moveTo(QPointF(x, y), QSizeF(width, height));
            return;
        }
        zwlr_virtual_pointer_v1_motion_absolute(pointer.get(), now(), x, y, width, height);
        zwlr_virtual_pointer_v1_frame(pointer.get());
    }

    void setButtonDown(std::uint32_t button, bool down) {
        if (fakeInput) {
            org_kde_kwin_fake_input_button(fakeInput.get(), button, down ? 1 : 0);
            return;
        }
        if (remoteDesktop) {
            remoteDesktop->call(QStringLiteral("NotifyPointerButton"),
                                {static_cast<int>(button), down});
            return;
        }
        zwlr_virtual_pointer_v1_button(pointer.get(), now(), button, down ? 1 : 0);
        zwlr_virtual_pointer_v1_frame(pointer.get());
    }

    /// Waits until the compositor has taken note of everything.
    void synchronize() { wl_display_roundtrip(connection.get()); }

private:
    void sendKeymap() {
        const Ended<xkb_context, xkb_context_unref> context(xkb_context_new(XKB_CONTEXT_NO_FLAGS));
        constexpr xkb_rule_names names{
            .rules = "evdev", .model = "pc105", .layout = "us", .variant = "", .options = ""};
        const Ended<xkb_keymap, xkb_keymap_unref> keymap(
            xkb_keymap_new_from_names(context.get(), &names, XKB_KEYMAP_COMPILE_NO_FLAGS));
        state.reset(xkb_state_new(keymap.get()));
        char* const text = xkb_keymap_get_as_string(keymap.get(), XKB_KEYMAP_FORMAT_TEXT_V1);
        const auto size = static_cast<std::uint32_t>(std::strlen(text) + 1);
        QTemporaryFile file;
        if (!file.open() || file.write(text, size) != size || !file.flush()) {
            throw std::runtime_error("cannot write the key map");
        }
        std::free(text);
        zwp_virtual_keyboard_v1_keymap(keyboard.get(), WL_KEYBOARD_KEYMAP_FORMAT_XKB_V1,
                                       file.handle(), size);
    }

    Ended<wl_display, wl_display_disconnect> connection;
    /// KWin's and GNOME's; where one of them is there, all that follows is null.
    Proxy<org_kde_kwin_fake_input> fakeInput;
    std::optional<RemoteDesktop> remoteDesktop;
    Proxy<wl_seat> seat;
    Proxy<zwp_virtual_keyboard_v1> keyboard;
    Proxy<zwlr_virtual_pointer_v1> pointer;
    Ended<xkb_state, xkb_state_unref> state;
};

} // namespace

/// Carries out commands from standard input, a line for each: "key CODE DOWN", "button CODE DOWN"
/// and "move X Y WIDTH HEIGHT", the last two of which are the size of all outputs together. Says
/// "done" at the start and after each.
int main() {
    try {
        Devices devices;
        std::string command;
        do {
            std::uint32_t first = 0;
            std::uint32_t second = 0;
            std::uint32_t width = 0;
            std::uint32_t height = 0;
            if (command == "key" && std::cin >> first >> second) {
                devices.setKeyDown(first, second != 0);
            } else if (command == "button" && std::cin >> first >> second) {
                devices.setButtonDown(first, second != 0);
            } else if (command == "move" && std::cin >> first >> second >> width >> height) {
                devices.moveTo(first, second, width, height);
            }
            devices.synchronize();
            std::cout << "done" << std::endl;
        } while (std::cin >> command);
    } catch (const std::exception& exception) {
        std::cout << exception.what() << std::endl;
        return EXIT_FAILURE;
    }
    return EXIT_SUCCESS;
}
