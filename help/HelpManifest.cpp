#include "help/HelpManifest.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace quorvantel::help {

namespace {

/// Why a manifest cannot be decoded.
struct DecodingFailure {
    QString reason;
};

/// The values of one object, typed.
class Decoder {
public:
    /// `path` says where in the manifest the value is; empty for the whole.
    Decoder(const QJsonValue& value, const QString& path) : m_path(path) {
        if (!value.isObject()) {
            throw DecodingFailure{path.isEmpty()
                                      ? QStringLiteral("the manifest is not a JSON object.")
                                      : QStringLiteral("%1 is not a JSON object.").arg(path)};
        }
        m_object = value.toObject();
    }

    QString text(const QString& key) const {
        const auto value = optionalText(key);
        if (!value) {
            throw DecodingFailure{QStringLiteral("%1 is missing.").arg(place(key))};
        }
        return *value;
    }

    std::optional<QString> optionalText(const QString& key) const {
        const QJsonValue value = m_object.value(key);
        if (value.isUndefined() || value.isNull()) {
            return std::nullopt;
        }
        if (!value.isString()) {
            throw DecodingFailure{QStringLiteral("%1 is not a text.").arg(place(key))};
        }
        return value.toString();
    }

    QJsonArray array(const QString& key) const {
        const QJsonValue value = m_object.value(key);
        if (!value.isArray()) {
            throw DecodingFailure{value.isUndefined() || value.isNull()
                                      ? QStringLiteral("%1 is missing.").arg(place(key))
                                      : QStringLiteral("%1 is not an array.").arg(place(key))};
        }
        return value.toArray();
    }

private:
    QString place(const QString& key) const {
        return m_path.isEmpty() ? QStringLiteral("\"%1\"").arg(key)
                                : QStringLiteral("\"%1\" of %2").arg(key, m_path);
    }

    QJsonObject m_object;
    QString m_path;
};

HelpManifestEntry decodeEntry(const QJsonValue& value, qsizetype index) {
    const Decoder decoder(value, QStringLiteral("topic %1").arg(index + 1));
    return {decoder.text(QStringLiteral("id")), decoder.text(QStringLiteral("title")),
            decoder.text(QStringLiteral("markdownFile")),
            decoder.optionalText(QStringLiteral("group"))};
}

HelpManifest decode(const QJsonDocument& document) {
    const QJsonValue root =
        document.isObject() ? QJsonValue(document.object()) : QJsonValue(document.array());
    const Decoder decoder(root, QString());
    HelpManifest manifest;
    manifest.windowTitle = decoder.optionalText(QStringLiteral("windowTitle"));
    const QJsonArray topics = decoder.array(QStringLiteral("topics"));
    for (qsizetype i = 0; i < topics.size(); ++i) {
        manifest.topics.push_back(decodeEntry(topics[i], i));
    }
    return manifest;
}

} // namespace

std::variant<HelpManifest, QString> decodeHelpManifest(const QByteArray& json) {
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(json, &error);
    if (error.error != QJsonParseError::NoError) {
        return QStringLiteral("%1 at byte %2.").arg(error.errorString()).arg(error.offset);
    }
    try {
        return decode(document);
    } catch (const DecodingFailure& failure) {
        return failure.reason;
    }
}

} // namespace quorvantel::help
