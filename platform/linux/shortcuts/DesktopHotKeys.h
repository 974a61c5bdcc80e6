#pragma once

#include "platform/GlobalHotKeys.h"
#include "platform/linux/keyboard/Keymap.h"
#include "platform/linux/shortcuts/DesktopSession.h"

#include <QDBusConnection>
#include <QString>
#include <QStringList>

#include <list>
#include <memory>
#include <optional>
#include <utility>

namespace quorvantel::platform {

/// Global hotkeys where only the desktop can give them, as on Wayland: by the first of its services
/// for shortcuts that is offered, else by what the user puts into its configuration.
///
/// Where the desktop runs a command for the key, that is a further start of the launcher, and its
/// presses come as an `ApplicationRequest`. The desktop's settings show one shortcut of the
/// launcher's, so only one registration at a time makes sense.
class DesktopHotKeys : public GlobalHotKeys {
public:
    /// `desktops` are the session's names, `startCommand` is the command line, as for a shell, of a
    /// further start. `bus` is the session bus. Without a key map nothing is asked yet: what the
    /// key means could be another than the user's settings have been made for.
    DesktopHotKeys(QDBusConnection bus, QStringList desktops, QString startCommand,
                   std::optional<Keymap> keymap);
    ~DesktopHotKeys() override;

    std::unique_ptr<Token> installHandler(PressHandler handler) override;

    /// The state is pending at first, unless it is the user who has to bind the key.
    std::unique_ptr<Registration> registerHotKey(std::uint32_t keyCode, std::uint32_t modifiers,
                                                 HotKeyIdentity identity,
                                                 ChangeHandler onChange) override;

    std::unique_ptr<Token> suspend() override;

    /// What the keys mean from now on. A hotkey that they give another meaning is asked for anew.
    void setKeymap(const Keymap& keymap);

private:
    class HandlerToken;
    class SuspensionToken;
    class KeyRegistration;

    void report(HotKeyIdentity identity) const;
    void updateSuspension();

    QDBusConnection m_bus;
    QStringList m_desktops;
    QString m_startCommand;
    std::optional<Keymap> m_keymap;
    std::list<PressHandler*> m_handlers;
    std::list<KeyRegistration*> m_registrations;
    int m_suspensions = 0;
    /// The key code and the modifiers that this process asked for last.
    std::optional<std::pair<std::uint32_t, std::uint32_t>> m_lastAsked;
};

} // namespace quorvantel::platform
