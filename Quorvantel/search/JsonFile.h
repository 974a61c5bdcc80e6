#pragma once

#include <QByteArray>
#include <QJsonObject>
#include <QString>

#include <optional>

namespace quorvantel {

/// A small file of the launcher's own whose root is a JSON object (RFC 8259).
///
/// No failure reaches the user: each one logs a single line under the launcher's prefix.
class JsonFile {
public:
    /// Touches nothing on disk.
    explicit JsonFile(QString path);

    /// The root object; nothing if the file is missing, too large, unreadable or not a JSON
    /// object. All but the missing file log a line.
    std::optional<QJsonObject> load() const;

    /// Replaces the file by the text of an object, atomically and for the user's eyes only; creates
    /// missing folders. Without a text, when the state of the file's owner has no JSON form, the
    /// file stays as it is.
    void save(const std::optional<QByteArray>& root) const;

    /// Logs that the file holds JSON, but not what its owner writes.
    void reportUndecodable() const;

private:
    void report(QStringView action, QStringView reason) const;

    QString m_path;
};

} // namespace quorvantel
