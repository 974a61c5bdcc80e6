#pragma once

#include <QByteArray>
#include <QString>

namespace quorvantel {

/// A path in the test's own home folder.
QString inHome(const QString& relativePath);

/// Writes a file and the folders above it.
void writeFile(const QString& path, const QByteArray& content);

/// Writes a program, or a script that begins with "#!".
void writeProgram(const QString& path, const QByteArray& content);

/// The content of a file; empty when there is none.
QByteArray readFile(const QString& path);

/// Makes a named pipe, which nobody writes to.
void makeFifo(const QString& path);

} // namespace quorvantel
