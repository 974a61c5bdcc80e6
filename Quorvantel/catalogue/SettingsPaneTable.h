#pragma once

#include "catalogue/SettingsPane.h"

#include <span>

namespace quorvantel {

/// All settings panes, in the order in which the catalogue lists them.
std::span<const SettingsPane> settingsPaneTable();

} // namespace quorvantel
