#pragma once

#include "platform/SettingsPanels.h"

namespace quorvantel {

/// Panels of no bundle, by default none at all.
class FakeSettingsPanels final : public platform::SettingsPanels {
public:
    QHash<QString, platform::Image> installedIcons() const override { return icons; }

    QHash<QString, platform::Image> icons;
};

} // namespace quorvantel
