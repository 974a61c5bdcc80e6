#pragma once

#include <string>
#include <vector>

namespace quorvantel::testing {

/// The compositors that this test program can start.
std::vector<std::string> testedCompositors();

} // namespace quorvantel::testing
