#include "platform/macos/MacSettingsPanels.h"

namespace quorvantel::platform {

QHash<QString, Image> MacSettingsPanels::installedIcons() const {
    return {};
}

} // namespace quorvantel::platform
