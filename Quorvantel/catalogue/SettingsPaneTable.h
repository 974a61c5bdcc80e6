#pragma once

#include "catalogue/SettingsPaneRow.h"

#include <span>

namespace quorvantel {

/// All settings panes, in the order in which the catalogue lists them.
std::span<const SettingsPaneRow> settingsPaneTable();

} // namespace quorvantel
