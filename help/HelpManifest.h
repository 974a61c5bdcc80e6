#pragma once

#include "help/HelpManifestEntry.h"

#include <QByteArray>
#include <QString>

#include <optional>
#include <variant>
#include <vector>

namespace quorvantel::help {

/// The list of an application's help topics.
struct HelpManifest {
    std::optional<QString> windowTitle;
    /// In the order in which they are shown.
    std::vector<HelpManifestEntry> topics;

    friend bool operator==(const HelpManifest&, const HelpManifest&) = default;
};

/// Decodes a manifest from JSON (RFC 8259), an object such as
/// `{"windowTitle": "Help", "topics": [{"id": "start", "title": "First Steps",
/// "markdownFile": "start.md", "group": "Basics"}]}`, in which "windowTitle" and "group" may be
/// absent or null. Unknown keys are ignored. The alternative is a sentence about what is wrong: the
/// bytes are no JSON, or something is missing or of the wrong type.
std::variant<HelpManifest, QString> decodeHelpManifest(const QByteArray& json);

} // namespace quorvantel::help
