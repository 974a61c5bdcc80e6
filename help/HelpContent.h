#pragma once

#include "help/HelpBundle.h"
#include "help/HelpManifest.h"
#include "help/HelpTopicGroup.h"

#include <QByteArray>
#include <QString>

#include <optional>
#include <vector>

namespace quorvantel::help {

/// The topics of an application's help, as a manifest lists them.
struct HelpContent {
    QString windowTitle;
    /// In the order of the manifest.
    std::vector<HelpTopic> topics;
    /// In the order in which the manifest first names them; the topics without a group are one.
    std::vector<HelpTopicGroup> groups;

    /// The index of the topic in a Markdown file, also by a name such as "./start.md"; absent when
    /// there is none.
    std::optional<std::size_t> topicForFile(const QString& markdownFile) const;

    friend bool operator==(const HelpContent&, const HelpContent&) = default;
};

/// Reads the manifest called `manifestName` plus ".json". Throws `HelpContentError` when it is not
/// there, is larger than a megabyte, cannot be read or does not decode.
HelpContent loadHelpContent(const QString& manifestName, const HelpBundle& bundle);

/// What a manifest lists, in groups.
HelpContent contentOf(const HelpManifest& manifest);

/// A topic's Markdown text for the bundle's system. Where its file is missing, larger than four
/// megabytes or not UTF-8, that is a text which says so.
QString loadTopicText(const HelpTopic& topic, const HelpBundle& bundle);

} // namespace quorvantel::help
