#include "platform/ColorArchive.h"
#include "platform/linux/PropertyList.h"

#include <cstdint>
#include <cstdlib>

/// Reads any bytes as a property list, as those of the settings and of bundles are read, and as the
/// archive of a colour, which is one. What is read can be written.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace quorvantel::platform;
    const QByteArray content(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    const auto list = PropertyList::parse(content);
    if (decodeColorArchive(content) && !list) {
        std::abort();
    }
    if (list && list->toVariant().isValid() && list->toXml().isEmpty()) {
        std::abort();
    }
    return 0;
}
