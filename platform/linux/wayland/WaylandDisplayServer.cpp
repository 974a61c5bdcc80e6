#include "platform/linux/wayland/WaylandDisplayServer.h"

#include "platform/linux/shortcuts/DesktopSession.h"
#include "platform/linux/shortcuts/StartCommand.h"

#include <QProcessEnvironment>

#include <wayland-client-core.h>

#include <cerrno>
#include <utility>

namespace quorvantel::platform {

namespace {

/// GNOME would ask the user.
WaylandKeyCapture::Shortcuts shortcutsIn(const QStringList& desktops) {
    return desktops.contains(QStringLiteral("GNOME"), Qt::CaseInsensitive)
               ? WaylandKeyCapture::Shortcuts::Left
               : WaylandKeyCapture::Shortcuts::Inhibited;
}

} // namespace

std::shared_ptr<const void> WaylandDisplayServer::reach() {
    wl_display* const display = wl_display_connect(nullptr);
    return display == nullptr ? nullptr
                              : std::shared_ptr<const void>(display, [display](const void*) {
                                    wl_display_disconnect(display);
                                });
}

std::unique_ptr<DisplayServer> WaylandDisplayServer::connect() {
    return std::make_unique<WaylandDisplayServer>(WaylandConnection::ofToolkit());
}

WaylandDisplayServer::WaylandDisplayServer(std::unique_ptr<WaylandConnection> connection)
    : m_connection(std::move(connection)),
      m_desktops(desktopNames(QProcessEnvironment::systemEnvironment())),
      m_keyboard(*m_connection),
      m_keyCapture(*m_connection, m_keyboard, shortcutsIn(m_desktops)),
      m_hotKeys(QDBusConnection::sessionBus(), m_desktops, startCommand(), m_keyboard.keymap()),
      m_userSerial(*m_connection),
      m_activation(*m_connection, m_userSerial),
      m_windowActivator(m_activation),
      m_panelHost(*m_connection, m_keyboard),
      m_screens(*m_connection) {
    QObject::connect(&m_keyboard, &WaylandKeyboard::keymapChanged, &m_keyboard,
                     [this] { m_hotKeys.setKeymap(*m_keyboard.keymap()); });
    // Without the keyboard the launcher has no right to bring another window to the front.
    m_panelHost.beforeKeyboardReturns = [this] { m_activation.prepare(); };
}

bool WaylandDisplayServer::isGone() const {
    // Another error is the launcher's own fault, and what the toolkit says about it is worth
    // having.
    const int error = wl_display_get_error(&m_connection->display());
    return error == EPIPE || error == ECONNRESET;
}

} // namespace quorvantel::platform
