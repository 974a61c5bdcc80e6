#pragma once

/// The measures of the launcher's content in points, and what follows from them.
namespace quorvantel::LauncherLayout {

inline constexpr int searchRowHeight = 56;
inline constexpr int separatorHeight = 1;
inline constexpr int rowHeight = 48;
inline constexpr int rowSpacing = 2;
inline constexpr int listPadding = 6;
inline constexpr int emptyStateHeight = 52;
inline constexpr int maximumVisibleRows = 8;
inline constexpr int cornerRadius = 12;

/// How many rows there is room for at once; 1 for the empty state, which a query without results
/// shows.
int visibleRowCount(int resultCount, bool hasQuery);

/// The height of everything below the separator; 0 when nothing is shown there.
int listHeight(int resultCount, bool hasQuery);

/// The height of the whole content.
int neededHeight(int resultCount, bool hasQuery);

/// The most that `neededHeight` can come to.
int maximumHeight();

/// The upper edge of a row inside the scrolled content, downward from its top.
int rowTop(int row);

/// The height of the scrolled content with this many rows.
int contentHeight(int resultCount);

} // namespace quorvantel::LauncherLayout
