#include "help/HelpContent.h"

#include <cstdint>
#include <cstdlib>

/// Decodes any bytes as a manifest: either a reason comes out, or topics of which each is in
/// exactly one group.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace quorvantel::help;
    const auto decoded = decodeHelpManifest(
        QByteArray(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size)));
    if (const auto* const reason = std::get_if<QString>(&decoded)) {
        if (reason->isEmpty()) {
            std::abort();
        }
        return 0;
    }
    const HelpContent content = contentOf(std::get<HelpManifest>(decoded));
    std::size_t grouped = 0;
    for (const HelpTopicGroup& group : content.groups) {
        grouped += group.topics.size();
        for (const HelpTopic& topic : group.topics) {
            if (topic.group != group.title) {
                std::abort();
            }
        }
    }
    if (grouped != content.topics.size()) {
        std::abort();
    }
    return 0;
}
