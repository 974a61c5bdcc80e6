#include "Fuzzing.h"
#include "platform/linux/gui/IconGate.h"

#include <ctime>

/// Decodes any bytes as an icon, in the time that a row may take for one.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace quorvantel::fuzzing;
    // Of processor time, with the sanitizers at work, for a gate that aims at a quarter.
    constexpr std::clock_t limit = CLOCKS_PER_SEC;
    const std::clock_t start = std::clock();
    const QImage image = quorvantel::platform::decodeIcon(bytesOf(data, size), 56);
    require(std::clock() - start < limit);
    require(image.width() <= 2048 && image.height() <= 2048);
    return 0;
}
