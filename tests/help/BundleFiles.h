#pragma once

#include "help/HelpBundle.h"
#include "support/TestFiles.h"

#include <QTemporaryDir>

namespace quorvantel::help {

/// A help bundle in a directory of its own.
class BundleFiles {
public:
    QString path() const { return m_directory.path() + QStringLiteral("/bundle"); }
    HelpBundle bundle() const { return HelpBundle(path()); }

    /// Writes a file; its name is relative to the bundle.
    void write(const char* name, const QByteArray& content) const {
        testing::writeFile(path() + u'/' + QString::fromUtf8(name), content);
    }

private:
    QTemporaryDir m_directory;
};

} // namespace quorvantel::help
