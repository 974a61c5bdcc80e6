#pragma once

#include "platform/linux/x11/X11Display.h"

#include <QByteArray>
#include <QString>

namespace quorvantel::platform {

/// The text of a setting such as "Net/IconThemeName" in what a settings manager offers (XSETTINGS
/// protocol, property _XSETTINGS_SETTINGS). Empty when there is no such text, or the data end
/// before it.
QString textSetting(const QByteArray& settings, const QByteArray& name);

/// The name of the icon theme that the user chose in the desktop's settings, as its settings
/// manager tells every program; empty when none does. Asks the server and waits for its answers.
QString desktopIconTheme(const X11Display& display);

} // namespace quorvantel::platform
