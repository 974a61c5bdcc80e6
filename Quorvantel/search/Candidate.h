#pragma once

#include <cstdint>

namespace quorvantel {

/// A target that a query found.
struct Candidate {
    double score;
    /// Its place in the `SearchKeyIndex`.
    std::uint32_t place;
};

} // namespace quorvantel
