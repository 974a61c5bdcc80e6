#include "search/LetterMask.h"

namespace quorvantel {

namespace {

constexpr unsigned digitsStart = 26;
constexpr unsigned othersStart = 36;
constexpr unsigned othersCount = 64 - othersStart;

unsigned bitOf(char32_t scalar) {
    if (scalar >= U'a' && scalar <= U'z') {
        return static_cast<unsigned>(scalar - U'a');
    }
    if (scalar >= U'0' && scalar <= U'9') {
        return digitsStart + static_cast<unsigned>(scalar - U'0');
    }
    return othersStart + static_cast<unsigned>(scalar) % othersCount;
}

} // namespace

std::uint64_t letterMask(std::u32string_view letters) {
    std::uint64_t mask = 0;
    for (const char32_t letter : letters) {
        mask |= std::uint64_t{1} << bitOf(letter);
    }
    return mask;
}

} // namespace quorvantel
