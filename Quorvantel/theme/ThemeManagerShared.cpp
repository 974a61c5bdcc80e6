// Apart from the rest of the class, so that its tests need no defaults but their own.
#include "theme/ThemeManager.h"

namespace quorvantel {

ThemeManager& ThemeManager::shared() {
    static ThemeManager instance(platform::standardUserDefaults(), platform::decodeColorArchive);
    return instance;
}

} // namespace quorvantel
