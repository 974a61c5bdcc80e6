#pragma once

#include <QTextFormat>

namespace quorvantel::markdown {

/// What a table of the document stands for, in the `property` of its format. Code and quotations
/// are tables of one cell, the only frames with a border on one side and without space around.
enum class FrameRole { Table = 1, Code, Quotation };

/// Where a table's format holds its role.
inline constexpr int frameRoleProperty = QTextFormat::UserProperty + 5;

/// Where a table's format holds how many list levels it is indented.
inline constexpr int frameIndentProperty = QTextFormat::UserProperty + 6;

} // namespace quorvantel::markdown
