#pragma once

#include <QString>

#include <optional>

namespace quorvantel::help {

/// One topic in a manifest.
struct HelpManifestEntry {
    /// Unique among the topics.
    QString id;
    QString title;
    /// The name of the topic's Markdown file in the bundle.
    QString markdownFile;
    /// The section of the sidebar that the topic is in.
    std::optional<QString> group;

    friend bool operator==(const HelpManifestEntry&, const HelpManifestEntry&) = default;
};

} // namespace quorvantel::help
