#pragma once

#include <QTextFormat>

namespace quorvantel::markdown {

/// What a run of characters is, as flags in the `property` of its format. The style decides what
/// that looks like, so that it can change later.
struct TextRole {
    static constexpr int property = QTextFormat::UserProperty + 1;

    static constexpr int strong = 1 << 0;
    static constexpr int emphasis = 1 << 1;
    static constexpr int strikethrough = 1 << 2;
    static constexpr int code = 1 << 3;
    static constexpr int link = 1 << 4;
    static constexpr int quotation = 1 << 5;
    static constexpr int tableHeader = 1 << 6;
    static constexpr int missingImage = 1 << 7;
    static constexpr int codeBlock = 1 << 8;
    static constexpr int checkedBox = 1 << 9;
    static constexpr int uncheckedBox = 1 << 10;
};

} // namespace quorvantel::markdown
