#pragma once

#include "platform/Image.h"

#include <QHash>
#include <QString>

namespace quorvantel::platform {

/// The panels of the desktop's own settings, as far as they are no bundles.
///
/// On Linux these are desktop entries of the settings programs; macOS has none beyond its extension
/// bundles.
class SettingsPanels {
public:
    virtual ~SettingsPanels() = default;

    /// The icons of the panels that are installed, by the settings address that `Workspace` opens
    /// them by. Reads the disk; nothing is decoded.
    virtual QHash<QString, Image> installedIcons() const = 0;
};

} // namespace quorvantel::platform
