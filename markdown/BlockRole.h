#pragma once

#include <QTextFormat>

namespace quorvantel::markdown {

/// What a block is, in the `property` of its format.
enum class BlockRole {
    Paragraph = 1,
    Heading,
    /// The first block of a list's item or a further one, in a list without space between items.
    TightItem,
    Code,
    Rule,
    TableCell
};

/// Where a block's format holds its role.
inline constexpr int blockRoleProperty = QTextFormat::UserProperty + 2;

/// Set in the format of a block that ends its frame and so has no space below.
inline constexpr int lastInFrameProperty = QTextFormat::UserProperty + 3;

/// Set in the format of a block that ends a list which is in no other list.
inline constexpr int lastInListProperty = QTextFormat::UserProperty + 8;

/// Set in the format of a block whose marker is text that hangs to the left of it: that text.
inline constexpr int hangingMarkerProperty = QTextFormat::UserProperty + 4;

} // namespace quorvantel::markdown
