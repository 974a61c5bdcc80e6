#pragma once

#include <QByteArray>

namespace quorvantel::markdown {

/// Markdown that is safe to parse.
struct GuardedInput {
    QByteArray text;
    /// Something was cut off at the end.
    bool isTruncated = false;
};

/// Bounds the work that a text can ask of the parser, whose time and memory grow with the square of
/// some inputs. Ordinary text passes unchanged. Otherwise:
///
/// - what goes beyond 512 KiB is cut off;
/// - a line longer than 8 KiB, or a run of lines without a blank one longer than 64 KiB, is broken
///   by a blank line;
/// - container markers beyond a hundred on one line are escaped and indentation beyond 400 columns
///   is dropped, so that nothing nests more than some hundred deep;
/// - the delimiter row of a table of more than 20,000 cells is escaped.
GuardedInput guardInput(const QByteArray& text);

} // namespace quorvantel::markdown
