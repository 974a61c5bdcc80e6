#include "Fuzzing.h"
#include "help/HelpContent.h"

/// Decodes any bytes as a manifest: either a reason comes out, or topics of which each is in
/// exactly one group.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace quorvantel::fuzzing;
    using namespace quorvantel::help;
    const auto decoded = decodeHelpManifest(bytesOf(data, size));
    if (const auto* const reason = std::get_if<QString>(&decoded)) {
        require(!reason->isEmpty());
        return 0;
    }
    const HelpContent content = contentOf(std::get<HelpManifest>(decoded));
    std::size_t grouped = 0;
    for (const HelpTopicGroup& group : content.groups) {
        grouped += group.topics.size();
        for (const HelpTopic& topic : group.topics) {
            require(topic.group == group.title);
        }
    }
    require(grouped == content.topics.size());
    return 0;
}
