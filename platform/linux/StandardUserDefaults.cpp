#include "platform/linux/PropertyListDefaults.h"

namespace quorvantel::platform {

UserDefaults& standardUserDefaults() {
    static PropertyListDefaults defaults;
    return defaults;
}

} // namespace quorvantel::platform
