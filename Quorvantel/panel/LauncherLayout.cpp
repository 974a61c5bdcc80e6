#include "panel/LauncherLayout.h"

#include <algorithm>

namespace quorvantel::LauncherLayout {

int visibleRowCount(int resultCount, bool hasQuery) {
    if (resultCount > 0) {
        return std::min(resultCount, maximumVisibleRows);
    }
    return hasQuery ? 1 : 0;
}

int listHeight(int resultCount, bool hasQuery) {
    const int rows = visibleRowCount(resultCount, hasQuery);
    if (rows < 1) {
        return 0;
    }
    return resultCount == 0 ? emptyStateHeight : contentHeight(rows);
}

int neededHeight(int resultCount, bool hasQuery) {
    const int list = listHeight(resultCount, hasQuery);
    return list == 0 ? searchRowHeight : searchRowHeight + separatorHeight + list;
}

int maximumHeight() {
    return neededHeight(maximumVisibleRows, true);
}

int rowTop(int row) {
    return listPadding + row * (rowHeight + rowSpacing);
}

int contentHeight(int resultCount) {
    return resultCount * rowHeight + (resultCount - 1) * rowSpacing + 2 * listPadding;
}

} // namespace quorvantel::LauncherLayout
