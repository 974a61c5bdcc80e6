#include "settings/Contrast.h"

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
    const auto mix = [&color](double below, double above) {
        return std::lerp(below, above, color.opacity);
    };
    return {mix(background.red, color.red), mix(background.green, color.green),
            mix(background.blue, color.blue), 1};
}

ThemeColor mostLegible(std::initializer_list<ThemeColor> colors, const ThemeColor& background) {
    return std::ranges::max(colors, {}, [&background](const ThemeColor& color) {
        return contrastRatio(color, background);
    });
}

} // namespace quorvantel
