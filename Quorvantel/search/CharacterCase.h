#pragma once

namespace quorvantel {

/// Whether a Unicode scalar has the property Lowercase of the Unicode Character Database: the
/// lower-case letters, and letter-like characters such as "ª" and "ⓐ".
bool isLowercase(char32_t scalar);

/// Whether a Unicode scalar has the property Uppercase: the upper-case letters, and letter-like
/// characters such as "Ⅷ" and "Ⓐ".
bool isUppercase(char32_t scalar);

} // namespace quorvantel
