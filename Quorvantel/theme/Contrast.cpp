#include "theme/Contrast.h"

#include <algorithm>
#include <cmath>

namespace quorvantel {

namespace {

double linear(double component) {
    return component <= 0.04045 ? component / 12.92 : std::pow((component + 0.055) / 1.055, 2.4);
}

double relativeLuminance(const ThemeColor& color) {
    return 0.2126 * linear(color.red) + 0.7152 * linear(color.green) + 0.0722 * linear(color.blue);
}

} // namespace

double contrastRatio(const ThemeColor& one, const ThemeColor& other) {
    const auto [darker, lighter] = std::minmax({relativeLuminance(one), relativeLuminance(other)});
    return (lighter + 0.05) / (darker + 0.05);
}

ThemeColor over(const ThemeColor& color, const ThemeColor& background) {
    return between(background, color, color.opacity);
}

ThemeColor between(const ThemeColor& from, const ThemeColor& to, double share) {
    const auto mix = [share](double a, double b) { return std::lerp(a, b, share); };
    return {mix(from.red, to.red), mix(from.green, to.green), mix(from.blue, to.blue), 1};
}

ThemeColor legible(const ThemeColor& color, std::initializer_list<ThemeColor> backgrounds,
                   double ratio) {
    const auto isLegible = [&backgrounds, ratio](const ThemeColor& candidate) {
        return std::ranges::all_of(backgrounds, [&](const ThemeColor& background) {
            return contrastRatio(candidate, background) >= ratio;
        });
    };
    const ThemeColor end =
        mostLegible({ThemeColor::black(1), ThemeColor::white(1)}, *backgrounds.begin());
    constexpr double step = 1.0 / 64;
    double share = 0;
    while (share < 1 && !isLegible(between(color, end, share))) {
        share += step;
    }
    return between(color, end, share);
}

ThemeColor mostLegible(std::initializer_list<ThemeColor> colors, const ThemeColor& background) {
    return std::ranges::max(colors, {}, [&background](const ThemeColor& color) {
        return contrastRatio(color, background);
    });
}

} // namespace quorvantel
