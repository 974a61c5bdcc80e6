#pragma once

#include "theme/ThemeColor.h"

#include <initializer_list>

namespace quorvantel {

/// How much two opaque colours differ in lightness, from 1 to 21: the contrast ratio of the Web
/// Content Accessibility Guidelines 2.1, which ask for 4.5 between a text and its background.
double contrastRatio(const ThemeColor& one, const ThemeColor& other);

/// What a colour looks like on an opaque background.
ThemeColor over(const ThemeColor& color, const ThemeColor& background);

/// The colour `share` of the way from one to another, from 0 to 1, both of them opaque.
ThemeColor between(const ThemeColor& from, const ThemeColor& to, double share);

/// An opaque colour, darkened or lightened just as far as it must be for a contrast of `ratio` with
/// each of the backgrounds. These are opaque, and all of them light or all of them dark.
ThemeColor legible(const ThemeColor& color, std::initializer_list<ThemeColor> backgrounds,
                   double ratio);

/// The colour of at least one that is the most legible on a background, all of them opaque.
ThemeColor mostLegible(std::initializer_list<ThemeColor> colors, const ThemeColor& background);

} // namespace quorvantel
