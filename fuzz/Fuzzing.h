#pragma once

#include <QByteArray>
#include <QString>

#include <cstddef>
#include <cstdint>

/// What the fuzzers share. Linking it gives a fuzzer an application object without a display, and
/// keeps the log lines that its inputs cause to itself.
namespace quorvantel::fuzzing {

/// An input as it was given.
QByteArray bytesOf(const std::uint8_t* data, std::size_t size);

/// Ends the process, for the fuzzer to report the input, unless what has to hold does.
void require(bool holds);

/// A path in a folder of this process's own, which goes when the process ends.
QString temporaryPath(const QString& name);

/// Writes a file, and the folder that it is in.
void writeFile(const QString& path, const QByteArray& content);

/// The content of a file; empty when there is none.
QByteArray readFile(const QString& path);

} // namespace quorvantel::fuzzing
