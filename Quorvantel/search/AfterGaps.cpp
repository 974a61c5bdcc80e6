#include "search/AfterGaps.h"

#include "search/PlacementCosts.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <cstdint>

// Most columns of the score's table hold nothing but the cost of one more skipped character, and
// each has to wait for the rounded result of the one before: they were most of the time of a
// keystroke. But among the numbers with one exponent all are multiples of one unit, and a
// difference that stays among them is off by the same rounding every time. So there the rounded
// cost can be taken away once, times the count.
namespace quorvantel {

namespace {

/// As many as are taken away one by one in the time that the shortcut needs.
constexpr std::size_t fewSteps = 6;

constexpr int leastExponent = -4;
constexpr int largestExponent = 15;

/// The cost as it is where the numbers have each exponent, from the least on.
constexpr auto roundedCosts = [] {
    std::array<double, largestExponent - leastExponent + 1> costs{};
    double power = 1.0 / (1 << -leastExponent);
    for (double& cost : costs) {
        cost = (power + gapCost) - power;
        power *= 2;
    }
    return costs;
}();

// A cost halfway between two units would be rounded to either, by turns. From the least exponent on
// at least two of its bits are cut off, of which the last is set.
static_assert((std::bit_cast<std::uint64_t>(gapCost) & 1) == 1);
static_assert(leastExponent >= -5);

int exponentOf(double score) {
    return static_cast<int>((std::bit_cast<std::uint64_t>(score) >> 52) & 0x7FF) - 1023;
}

double powerOfTwo(int exponent) {
    return std::bit_cast<double>(static_cast<std::uint64_t>(exponent + 1023) << 52);
}

/// Takes all away and chooses, rather than to guess at how many turns a loop has.
double afterFewGaps(double score, std::size_t count) {
    std::array<double, fewSteps + 1> scores;
    for (double& one : scores) {
        one = score;
        score -= gapCost;
    }
    return scores[count];
}

} // namespace

double afterGaps(double score, std::size_t count) {
    while (count > fewSteps) {
        const int exponent = exponentOf(score);
        if (exponent < leastExponent || exponent > largestExponent) {
            score = afterFewGaps(score, fewSteps);
            count -= fewSteps;
            continue;
        }
        const double room =
            score > 0 ? score - powerOfTwo(exponent) : score + powerOfTwo(exponent + 1);
        // Rather one too few than one that leaves the exponent, which the next one does.
        const auto steps = std::min(count, static_cast<std::size_t>(room * (0.9999999 / gapCost)));
        score -= static_cast<double>(steps) *
                 roundedCosts[static_cast<std::size_t>(exponent - leastExponent)];
        const std::size_t next = count > steps ? 1 : 0;
        score -= static_cast<double>(next) * gapCost;
        count -= steps + next;
    }
    return afterFewGaps(score, count);
}

} // namespace quorvantel
