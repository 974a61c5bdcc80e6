#pragma once

#include "settings/ThemeColor.h"

#include <initializer_list>

namespace quorvantel {

/// How much two opaque colours differ in lightness, from 1 to 21: the contrast ratio of the Web
/// Content Accessibility Guidelines 2.1, which ask for 4.5 between a text and its background.
double contrastRatio(const ThemeColor& one, const ThemeColor& other);

/// What a colour looks like on an opaque background.
ThemeColor over(const ThemeColor& color, const ThemeColor& background);

/// The colour of at least one that is the most legible on a background, all of them opaque.
ThemeColor mostLegible(std::initializer_list<ThemeColor> colors, const ThemeColor& background);

} // namespace quorvantel
