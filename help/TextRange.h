#pragma once

#include <QtGlobal>

namespace quorvantel::help {

/// A part of a text, in UTF-16 code units.
struct TextRange {
    qsizetype start;
    qsizetype length;

    friend bool operator==(const TextRange&, const TextRange&) = default;
};

} // namespace quorvantel::help
