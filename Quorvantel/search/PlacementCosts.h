#pragma once

/// What a placement of the query's letters in a key gains and costs, beside the bonuses of the
/// places themselves.
namespace quorvantel {

/// For a letter directly after the previous matched one.
inline constexpr double consecutiveBonus = 1.0;

/// For each character before the first matched letter.
inline constexpr double leadingGapCost = 0.005;

/// For each skipped character after it.
inline constexpr double gapCost = 0.01;

/// For the character directly after a complete match, which is charged half.
inline constexpr double gapCostAfterMatch = 0.005;

} // namespace quorvantel
