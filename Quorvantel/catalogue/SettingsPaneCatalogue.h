#pragma once

#include "catalogue/LaunchTarget.h"
#include "platform/BundleReader.h"
#include "platform/SettingsPanels.h"

#include <QString>

#include <vector>

namespace quorvantel {

/// The folder in which the system keeps its settings extensions.
inline constexpr QStringView settingsExtensionsDirectory =
    u"/System/Library/ExtensionKit/Extensions";

/// One target for every row of the table of settings panes, in its order.
///
/// A pane whose extension bundle lies in `extensionsDirectory` carries the icon of that bundle, one
/// that the system shows in a panel of another kind the icon of that panel, and every other one its
/// symbol. Neither the folder, which may be missing, nor the panels decide about anything else.
std::vector<LaunchTarget> settingsPaneTargets(const platform::BundleReader& bundles,
                                              const QString& extensionsDirectory,
                                              const platform::SettingsPanels& panels);

} // namespace quorvantel
