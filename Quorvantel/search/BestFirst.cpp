#include "search/BestFirst.h"

#include <array>
#include <bit>
#include <cmath>
#include <limits>
#include <utility>

// A radix sort, digit by digit from the least significant one on. A first letter finds most of a
// catalogue; to compare tens of thousands of scores with one another took as long as to find them.
namespace quorvantel {

namespace {

/// From how many candidates on longer digits, of which there are fewer, are worth their counting.
constexpr std::size_t many = 4096;

std::uint64_t keyOf(double score) {
    // Absurd numbers in a store's file can make a score that is not a number. It has no order.
    const double ordered = std::isnan(score) ? -std::numeric_limits<double>::infinity() : score;
    // Zero has two signs that are equal; adding zero leaves one.
    const auto bits = std::bit_cast<std::uint64_t>(ordered + 0.0);
    constexpr std::uint64_t sign = std::uint64_t{1} << 63;
    // Of two negative numbers, that with the larger bits is the smaller one.
    return (bits & sign) != 0 ? bits : ~bits & ~sign;
}

} // namespace

void BestFirst::sort(std::vector<Candidate>& candidates) {
    m_items.clear();
    for (const Candidate& candidate : candidates) {
        m_items.push_back({keyOf(candidate.score), candidate.place});
    }
    if (candidates.size() < many) {
        sortItems<8>();
    } else {
        sortItems<11>();
    }
    for (std::size_t i = 0; i < candidates.size(); ++i) {
        candidates[i].place = m_items[i].place;
    }
}

template <unsigned digitBits>
void BestFirst::sortItems() {
    constexpr std::size_t digits = (64 + digitBits - 1) / digitBits;
    constexpr std::size_t values = std::size_t{1} << digitBits;
    const auto digitOf = [](std::uint64_t key, std::size_t digit) {
        return (key >> (digitBits * digit)) & (values - 1);
    };
    std::array<std::array<std::uint32_t, values>, digits> counts{};
    for (const Item& item : m_items) {
        for (std::size_t digit = 0; digit < digits; ++digit) {
            ++counts[digit][digitOf(item.key, digit)];
        }
    }
    m_buffer.resize(m_items.size());
    for (std::size_t digit = 0; digit < digits; ++digit) {
        std::uint32_t next = 0;
        for (std::uint32_t& count : counts[digit]) {
            next += std::exchange(count, next);
        }
        for (const Item& item : m_items) {
            m_buffer[counts[digit][digitOf(item.key, digit)]++] = item;
        }
        m_items.swap(m_buffer);
    }
}

} // namespace quorvantel
