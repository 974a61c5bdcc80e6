#pragma once

#include "help/SystemText.h"

#include <QByteArray>
#include <QString>
#include <QUrl>

#include <optional>

namespace quorvantel::help {

/// The folder that an application keeps its help in: the manifest, the topics' Markdown files and
/// their images. Either a directory or a prefix of the Qt resource system.
///
/// Nothing is read from outside the folder, whatever a manifest or a topic asks for. A value;
/// copies are cheap.
class HelpBundle {
public:
    /// `root` is a directory's path, or a Qt resource prefix such as ":/help". It need not exist:
    /// then nothing is found in it. `system` is the one that the topics' texts are to be for.
    explicit HelpBundle(QString root, QString system = runningSystem());

    const QString& system() const { return m_system; }

    /// Whether the bundle has a file of that name. The name is relative and may have folders in it.
    bool contains(const QString& name) const;

    /// The bytes of a file; absent when there is no such file, it cannot be read or it is larger
    /// than `maximumSize` bytes.
    std::optional<QByteArray> read(const QString& name, qint64 maximumSize) const;

    /// What the topics' relative links and images are relative to.
    QUrl baseUrl() const;

private:
    QString m_root;
    QString m_system;
};

} // namespace quorvantel::help
