#pragma once

#include "help/HelpTopic.h"

#include <QString>

#include <optional>
#include <vector>

namespace quorvantel::help {

/// A section of the sidebar.
struct HelpTopicGroup {
    /// Absent for the topics that are in no group.
    std::optional<QString> title;
    /// In the order of the manifest.
    std::vector<HelpTopic> topics;

    friend bool operator==(const HelpTopicGroup&, const HelpTopicGroup&) = default;
};

} // namespace quorvantel::help
