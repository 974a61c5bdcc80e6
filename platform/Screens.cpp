#include "platform/Screens.h"

#include <algorithm>

namespace quorvantel::platform {

std::optional<Screen> Screens::target() const {
    const auto found = underMouse();
    return found ? found : main();
}

std::optional<Screen> screenWithId(const ScreenId& id, const std::vector<Screen>& screens) {
    const auto found = std::ranges::find(screens, id, &Screen::id);
    return found == screens.end() ? std::nullopt : std::optional(*found);
}

} // namespace quorvantel::platform
