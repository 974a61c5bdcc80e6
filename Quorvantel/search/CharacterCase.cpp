#include "search/CharacterCase.h"

#include <QChar>

#include <algorithm>
#include <array>

namespace quorvantel {

namespace {

struct Range {
    char32_t first;
    char32_t last;
};

// Other_Lowercase and Other_Uppercase of the Unicode Character Database 15.0 (PropList.txt): what
// the properties Lowercase and Uppercase have beyond the general categories Ll and Lu.
constexpr std::array<Range, 28> otherLowercase{{
    {U'\u00AA', U'\u00AA'},         {U'\u00BA', U'\u00BA'},         {U'\u02B0', U'\u02B8'},
    {U'\u02C0', U'\u02C1'},         {U'\u02E0', U'\u02E4'},         {U'\u0345', U'\u0345'},
    {U'\u037A', U'\u037A'},         {U'\u10FC', U'\u10FC'},         {U'\u1D2C', U'\u1D6A'},
    {U'\u1D78', U'\u1D78'},         {U'\u1D9B', U'\u1DBF'},         {U'\u2071', U'\u2071'},
    {U'\u207F', U'\u207F'},         {U'\u2090', U'\u209C'},         {U'\u2170', U'\u217F'},
    {U'\u24D0', U'\u24E9'},         {U'\u2C7C', U'\u2C7D'},         {U'\uA69C', U'\uA69D'},
    {U'\uA770', U'\uA770'},         {U'\uA7F2', U'\uA7F4'},         {U'\uA7F8', U'\uA7F9'},
    {U'\uAB5C', U'\uAB5F'},         {U'\uAB69', U'\uAB69'},         {U'\U00010780', U'\U00010780'},
    {U'\U00010783', U'\U00010785'}, {U'\U00010787', U'\U000107B0'}, {U'\U000107B2', U'\U000107BA'},
    {U'\U0001E030', U'\U0001E06D'},
}};
constexpr std::array<Range, 5> otherUppercase{{
    {U'\u2160', U'\u216F'},
    {U'\u24B6', U'\u24CF'},
    {U'\U0001F130', U'\U0001F149'},
    {U'\U0001F150', U'\U0001F169'},
    {U'\U0001F170', U'\U0001F189'},
}};

template <size_t Size>
bool contains(const std::array<Range, Size>& ranges, char32_t scalar) {
    return std::any_of(ranges.begin(), ranges.end(), [scalar](const Range& range) {
        return range.first <= scalar && scalar <= range.last;
    });
}

} // namespace

bool isLowercaseBeyondAscii(char32_t scalar) {
    return QChar::category(scalar) == QChar::Letter_Lowercase || contains(otherLowercase, scalar);
}

bool isUppercaseBeyondAscii(char32_t scalar) {
    return QChar::category(scalar) == QChar::Letter_Uppercase || contains(otherUppercase, scalar);
}

} // namespace quorvantel
