#include "panel/ScrollMotion.h"

namespace quorvantel {

// The cubic Hermite curve between the two places whose slope at its end is zero.

double ScrollMotion::positionAt(double progress) const {
    const double rest = 1 - progress;
    return from + (to - from) * progress * progress * (3 - 2 * progress) +
           velocity * progress * rest * rest;
}

double ScrollMotion::velocityAt(double progress) const {
    const double rest = 1 - progress;
    return (to - from) * 6 * progress * rest + velocity * rest * (1 - 3 * progress);
}

} // namespace quorvantel
