#include "platform/ColorArchive.h"
#include "platform/linux/PropertyList.h"

#include <cstdint>
#include <cstdlib>

/// Reads any bytes as a property list, as those of the settings and of bundles are read, and as the
/// archive of a colour, which is one. What is read can be written.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace quorvantel::platform;
    const QByteArray content(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    const PropertyList list = parsePropertyList(content);
    if (decodeColorArchive(content) && !list) {
        std::abort();
    }
    if (list && toVariant(list.get()).isValid() && toXml(list.get()).isEmpty()) {
        std::abort();
    }
    return 0;
}
