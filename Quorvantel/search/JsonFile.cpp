#include "search/JsonFile.h"

#include "platform/PrivateFile.h"

#include <QJsonDocument>
#include <QtGlobal>

#include <utility>

namespace quorvantel {

namespace {

// Some hundred thousand entries: far beyond a lifetime of launches, and far below what would make
// the start-up stall on a file that something else put there.
constexpr qint64 maximumFileSize = 64LL * 1024 * 1024;

constexpr QStringView reading = u"read";
constexpr QStringView writing = u"write";

} // namespace

JsonFile::JsonFile(QString path) : m_path(std::move(path)) {}

std::optional<QJsonObject> JsonFile::load() const {
    const platform::FileContent content = platform::readRegularFile(m_path, maximumFileSize);
    if (const auto* error = std::get_if<platform::FileError>(&content)) {
        if (*error != platform::FileError::Missing) {
            report(reading, platform::describe(*error));
        }
        return std::nullopt;
    }
    QJsonParseError error;
    const auto document = QJsonDocument::fromJson(std::get<QByteArray>(content), &error);
    if (error.error != QJsonParseError::NoError) {
        report(reading, error.errorString());
        return std::nullopt;
    }
    if (!document.isObject()) {
        reportUndecodable();
        return std::nullopt;
    }
    return document.object();
}

void JsonFile::save(const std::optional<QByteArray>& root) const {
    if (!root) {
        report(writing, u"a weight is not a finite number");
        return;
    }
    if (!platform::replacePrivateFile(m_path, *root)) {
        report(writing, u"the file could not be replaced");
    }
}

void JsonFile::reportUndecodable() const {
    report(reading, u"unexpected content");
}

void JsonFile::report(QStringView action, QStringView reason) const {
    qWarning("Quorvantel: failed to %ls %ls: %ls", qUtf16Printable(action.toString()),
             qUtf16Printable(m_path), qUtf16Printable(reason.toString()));
}

} // namespace quorvantel
