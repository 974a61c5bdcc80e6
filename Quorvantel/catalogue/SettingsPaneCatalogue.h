#pragma once

#include "catalogue/LaunchTarget.h"
#include "platform/BundleReader.h"

#include <QString>

#include <vector>

namespace quorvantel {

/// The folder in which the system keeps its settings extensions.
inline constexpr QStringView settingsExtensionsDirectory =
    u"/System/Library/ExtensionKit/Extensions";

/// One target for every row of the table of settings panes, in its order.
///
/// A pane whose extension bundle lies in `extensionsDirectory` carries the icon of that bundle,
/// every other one its symbol; the folder decides about nothing else and may be missing.
std::vector<LaunchTarget> buildSettingsPaneTargets(const platform::BundleReader& bundles,
                                                   const QString& extensionsDirectory);

/// The targets of all settings panes, built on first use with the system's own extensions folder
/// and kept until the program ends. `bundles` is read by the first call alone. Main thread only.
const std::vector<LaunchTarget>& settingsPaneTargets(const platform::BundleReader& bundles);

} // namespace quorvantel
