#pragma once

#include "search/Candidate.h"

#include <cstdint>
#include <vector>

namespace quorvantel {

/// Sorts candidates by their scores, reusing its scratch memory. The time is in proportion to their
/// number.
class BestFirst {
public:
    /// The highest score first. Candidates with equal scores keep their order; those whose score is
    /// not a number come last.
    void sort(std::vector<Candidate>& candidates);

private:
    struct Item {
        /// The higher the score, the smaller.
        std::uint64_t key;
        std::uint32_t place;
    };

    template <unsigned digitBits>
    void sortItems();

    std::vector<Item> m_items;
    std::vector<Item> m_buffer;
};

} // namespace quorvantel
