#pragma once

#include <QProcessEnvironment>
#include <QStringList>

#include <vector>

namespace quorvantel::platform {

/// The names of the desktop that runs the session, the most exact first (Desktop Entry
/// Specification, XDG_CURRENT_DESKTOP); some compositors give themselves away by other variables
/// only.
QStringList desktopNames(const QProcessEnvironment& environment);

/// A way to have a key bound.
enum class ShortcutWay {
    Kde,    ///< KDE's global shortcuts.
    Portal, ///< The GlobalShortcuts portal.
    Gnome,  ///< GNOME's custom key bindings.
    User,   ///< The user alone can do it.
};

/// What to try in a desktop, one after the other until one is offered; the last one always is.
std::vector<ShortcutWay> shortcutWays(const QStringList& desktops);

} // namespace quorvantel::platform
