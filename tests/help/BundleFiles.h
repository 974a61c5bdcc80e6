#pragma once

#include "help/HelpBundle.h"

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace quorvantel::help {

/// A help bundle in a directory of its own.
class BundleFiles {
public:
    QString path() const { return m_directory.path() + QStringLiteral("/bundle"); }
    HelpBundle bundle() const { return HelpBundle(path()); }

    /// Writes a file; its name is relative to the bundle.
    void write(const QString& name, const QByteArray& content) const {
        const QString file = path() + u'/' + name;
        QDir().mkpath(QFileInfo(file).path());
        QFile output(file);
        ASSERT_TRUE(output.open(QIODevice::WriteOnly));
        ASSERT_EQ(output.write(content), content.size());
    }

private:
    QTemporaryDir m_directory;
};

} // namespace quorvantel::help
