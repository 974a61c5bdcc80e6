#pragma once

#include <QString>

#include <optional>

namespace quorvantel::help {

/// One topic as it is shown.
struct HelpTopic {
    QString id;
    QString title;
    /// The name of the topic's Markdown file in the bundle.
    QString markdownFile;
    std::optional<QString> group;

    friend bool operator==(const HelpTopic&, const HelpTopic&) = default;
};

} // namespace quorvantel::help
