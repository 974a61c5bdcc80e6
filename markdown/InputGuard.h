#pragma once

#include <QByteArray>

namespace quorvantel::markdown {

/// Markdown that is safe to parse.
struct GuardedInput {
    QByteArray text;
    /// Something was cut off at the end.
    bool isTruncated = false;
};

/// Bounds the work that a text can ask of the parser, whose time and memory grow with the square
/// and the cube of some inputs. Ordinary text passes unchanged. Otherwise:
///
/// - what goes beyond 64 KiB is cut off;
/// - a line, or a run of lines without a blank one, longer than 8 KiB is broken by a blank line;
/// - container markers beyond a hundred on one line are escaped, so that no more than some hundred
///   nest.
GuardedInput guardInput(const QByteArray& text);

} // namespace quorvantel::markdown
