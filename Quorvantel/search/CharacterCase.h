#pragma once

namespace quorvantel {

/// Both properties, of scalars beyond ASCII.
bool isLowercaseBeyondAscii(char32_t scalar);
bool isUppercaseBeyondAscii(char32_t scalar);

/// Whether a Unicode scalar has the property Lowercase of the Unicode Character Database: the
/// lower-case letters, and letter-like characters such as "ª" and "ⓐ".
inline bool isLowercase(char32_t scalar) {
    return scalar < 0x80 ? scalar >= U'a' && scalar <= U'z' : isLowercaseBeyondAscii(scalar);
}

/// Whether a Unicode scalar has the property Uppercase: the upper-case letters, and letter-like
/// characters such as "Ⅷ" and "Ⓐ".
inline bool isUppercase(char32_t scalar) {
    return scalar < 0x80 ? scalar >= U'A' && scalar <= U'Z' : isUppercaseBeyondAscii(scalar);
}

} // namespace quorvantel
