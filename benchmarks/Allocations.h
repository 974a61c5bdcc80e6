#pragma once

#include <cstdint>

namespace quorvantel {

/// How often the program has asked for memory up to now, by whatever means.
std::uint64_t allocations();

} // namespace quorvantel
