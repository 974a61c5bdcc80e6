#include "search/BoundaryBonuses.h"

#include <algorithm>

namespace quorvantel {

std::vector<BoundaryBonus> boundaryBonuses(std::u32string_view unfolded, size_t count) {
    std::vector<BoundaryBonus> bonuses(count, BoundaryBonus::None);
    const size_t shared = std::min(count, unfolded.size());
    for (size_t k = 0; k < shared; ++k) {
        bonuses[k] = k == 0 ? BoundaryBonus::First : bonusAfter(unfolded[k - 1], unfolded[k]);
    }
    return bonuses;
}

} // namespace quorvantel
