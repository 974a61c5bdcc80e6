#include "help/HelpContent.h"

#include "help/HelpContentError.h"

#include <QDir>
#include <QHash>
#include <QStringDecoder>

#include <algorithm>

namespace quorvantel::help {

namespace {

constexpr qint64 maximumManifestSize = qint64{1024} * 1024;
constexpr qint64 maximumTopicSize = qint64{4} * 1024 * 1024;

/// The key of the topics without a group, which no group's name can be.
QString ungroupedKey() {
    return QChar(QChar::Null) + QStringLiteral("__ungrouped__");
}

QString missingFileNote(const HelpTopic& topic) {
    return QStringLiteral("# ") + topic.title +
           QStringLiteral("\n\n*This help topic could not be loaded.*\n\nThe file **") +
           topic.markdownFile +
           QStringLiteral("** is missing from the app bundle. Please report this to the app "
                          "developer.");
}

} // namespace

std::optional<std::size_t> HelpContent::topicForFile(const QString& markdownFile) const {
    const auto topic =
        std::ranges::find(topics, QDir::cleanPath(markdownFile), [](const HelpTopic& candidate) {
            return QDir::cleanPath(candidate.markdownFile);
        });
    return topic == topics.end() ? std::nullopt
                                 : std::optional(static_cast<std::size_t>(topic - topics.begin()));
}

HelpContent contentOf(const HelpManifest& manifest) {
    HelpContent content;
    content.windowTitle = manifest.windowTitle.value_or(QStringLiteral("Help"));
    QHash<QString, std::size_t> groupIndexes;
    for (const HelpManifestEntry& entry : manifest.topics) {
        const HelpTopic topic{entry.id, entry.title, entry.markdownFile, entry.group};
        content.topics.push_back(topic);
        const QString key = entry.group.value_or(ungroupedKey());
        if (!groupIndexes.contains(key)) {
            groupIndexes.insert(key, content.groups.size());
            content.groups.push_back({entry.group, {}});
        }
        content.groups[groupIndexes.value(key)].topics.push_back(topic);
    }
    return content;
}

HelpContent loadHelpContent(const QString& manifestName, const HelpBundle& bundle) {
    const QString file = manifestName + QStringLiteral(".json");
    if (!bundle.contains(file)) {
        throw HelpContentError::manifestNotFound(manifestName);
    }
    const auto bytes = bundle.read(file, maximumManifestSize);
    if (!bytes) {
        throw HelpContentError::manifestUnreadable(
            manifestName, QStringLiteral("the file cannot be read or is too large."));
    }
    const auto decoded = decodeHelpManifest(*bytes);
    if (const auto* const reason = std::get_if<QString>(&decoded)) {
        throw HelpContentError::manifestUnreadable(manifestName, *reason);
    }
    return contentOf(std::get<HelpManifest>(decoded));
}

QString loadTopicText(const HelpTopic& topic, const HelpBundle& bundle) {
    const auto bytes = bundle.read(topic.markdownFile, maximumTopicSize);
    if (!bytes) {
        return missingFileNote(topic);
    }
    QStringDecoder decoder(QStringDecoder::Utf8);
    const QString text = decoder(*bytes);
    return decoder.hasError() ? missingFileNote(topic) : textForSystem(text, bundle.system());
}

} // namespace quorvantel::help
