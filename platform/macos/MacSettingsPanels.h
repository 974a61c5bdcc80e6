#pragma once

#include "platform/SettingsPanels.h"

namespace quorvantel::platform {

/// None beyond the extension bundles, which `BundleReader` reads.
class MacSettingsPanels final : public SettingsPanels {
public:
    QHash<QString, Image> installedIcons() const override;
};

} // namespace quorvantel::platform
