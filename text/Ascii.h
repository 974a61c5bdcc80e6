#pragma once

#include <QStringView>

namespace quorvantel {

/// Whether all characters of a text are of ASCII.
inline bool isAscii(QStringView text) {
    // All of them rather than up to the first that is not, since compilers do that many at a time.
    char16_t units = 0;
    for (const QChar unit : text) {
        units = static_cast<char16_t>(units | unit.unicode());
    }
    return units < 0x80;
}

/// The lower-case letter of an upper-case one of ASCII; any other character as it is.
constexpr char16_t asciiLowercase(char16_t unit) {
    return unit >= u'A' && unit <= u'Z' ? static_cast<char16_t>(unit + (u'a' - u'A')) : unit;
}

} // namespace quorvantel
