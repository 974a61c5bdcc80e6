#pragma once

#include "platform/linux/shortcuts/DesktopShortcut.h"
#include "platform/linux/shortcuts/GnomeShortcutTable.h"

#include <QObject>

namespace quorvantel::platform {

/// The launcher's key binding among those that GNOME lets users make for themselves, which run a
/// command: a further start of the launcher. Its presses thus do not come as presses.
///
/// The entry has a path of its own; all others are left as they are. GNOME itself refuses no
/// binding, so whether its own shortcuts and the user's other key bindings leave the keys free is
/// looked at here.
class GnomeShortcut : public DesktopShortcut {
public:
    /// `command` is a command line as for a shell. When there is an entry with other keys already,
    /// `keepsChoice` tells whether the user chose them in GNOME's settings, to be followed, or the
    /// launcher asked for them before.
    GnomeShortcut(const Accelerator& accelerator, QString command, bool keepsChoice,
                  Handlers handlers);
    ~GnomeShortcut() override;

    void setSuspended(bool isSuspended) override;

private:
    void begin();
    void put();
    void enlist(bool shallBeListed);
    bool isListed() const;
    void follow();
    HotKeyState state() const;
    std::optional<QString> purposeOf(const Accelerator& accelerator) const;
    void answer(const ShortcutAnswer& answer);

    Accelerator m_asked;
    QString m_command;
    bool m_keepsChoice;
    Handlers m_handlers;
    std::unique_ptr<GnomeSettings> m_list;
    std::unique_ptr<GnomeSettings> m_entry;
    GnomeShortcutTable m_table;
    /// Without it the keys were taken from the beginning.
    bool m_isPut = false;
    bool m_isSuspended = false;
    /// Taken out of GNOME's list only while the launcher's hotkey is suspended.
    bool m_isWithheld = false;
    bool m_isFollowPending = false;
    QObject m_context;
};

} // namespace quorvantel::platform
