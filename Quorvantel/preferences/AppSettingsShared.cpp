// Apart from the rest of the class, so that its tests need no defaults but their own.
#include "preferences/AppSettings.h"

namespace quorvantel {

AppSettings& AppSettings::shared() {
    static AppSettings instance(platform::standardUserDefaults());
    return instance;
}

} // namespace quorvantel
