#pragma once

#include <QColor>
#include <QString>

namespace quorvantel {

/// An sRGB colour with opacity, its components from 0 to 1. The default is fully transparent.
struct ThemeColor {
    double red = 0;
    double green = 0;
    double blue = 0;
    double opacity = 0;

    static constexpr ThemeColor black(double opacity) { return {0, 0, 0, opacity}; }
    static constexpr ThemeColor white(double opacity) { return {1, 1, 1, opacity}; }

    /// From components of 0 to 255.
    static constexpr ThemeColor bytes(int red, int green, int blue, double opacity) {
        return {red / 255.0, green / 255.0, blue / 255.0, opacity};
    }

    QColor toQColor() const;

    friend constexpr bool operator==(const ThemeColor&, const ThemeColor&) = default;
};

/// The opaque colour that a text such as "#14B8A6" names; fully transparent for any other text.
///
/// White space around the text and the "#" may be left out or present. The text must then be six
/// characters long, of which the leading hexadecimal digits count (after an optional "0x"): a text
/// such as "12G456" gives the colour of 0x12.
ThemeColor colorFromHex(const QString& text);

} // namespace quorvantel
