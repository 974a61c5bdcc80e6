#include "search/BestFirst.h"

#include <array>
#include <bit>
#include <cmath>
#include <limits>
#include <utility>

// A radix sort, byte by byte from the least significant one on. A first letter finds most of a
// catalogue; to compare tens of thousands of scores with one another took as long as to find them.
namespace quorvantel {

namespace {

constexpr std::size_t digits = sizeof(std::uint64_t);
constexpr std::size_t values = 256;

std::uint64_t keyOf(double score) {
    // Absurd numbers in a store's file can make a score that is not a number. It has no order.
    const double ordered = std::isnan(score) ? -std::numeric_limits<double>::infinity() : score;
    // Zero has two signs that are equal; adding zero leaves one.
    const auto bits = std::bit_cast<std::uint64_t>(ordered + 0.0);
    constexpr std::uint64_t sign = std::uint64_t{1} << 63;
    // Of two negative numbers, that with the larger bits is the smaller one.
    return (bits & sign) != 0 ? bits : ~bits & ~sign;
}

std::size_t digitOf(std::uint64_t key, std::size_t digit) {
    return (key >> (8 * digit)) & (values - 1);
}

} // namespace

void BestFirst::sort(std::vector<Candidate>& candidates) {
    if (candidates.empty()) {
        return;
    }
    std::array<std::array<std::uint32_t, values>, digits> counts{};
    m_items.clear();
    for (const Candidate& candidate : candidates) {
        const std::uint64_t key = keyOf(candidate.score);
        m_items.push_back({key, candidate.place});
        for (std::size_t digit = 0; digit < digits; ++digit) {
            ++counts[digit][digitOf(key, digit)];
        }
    }
    m_buffer.resize(m_items.size());
    for (std::size_t digit = 0; digit < digits; ++digit) {
        if (counts[digit][digitOf(m_items.front().key, digit)] == m_items.size()) {
            continue;
        }
        std::uint32_t next = 0;
        for (std::uint32_t& count : counts[digit]) {
            next += std::exchange(count, next);
        }
        for (const Item& item : m_items) {
            m_buffer[counts[digit][digitOf(item.key, digit)]++] = item;
        }
        m_items.swap(m_buffer);
    }
    for (std::size_t i = 0; i < candidates.size(); ++i) {
        candidates[i].place = m_items[i].place;
    }
}

} // namespace quorvantel
