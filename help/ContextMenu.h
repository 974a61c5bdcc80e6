#pragma once

class QMenu;
class QPoint;
class QWidget;

namespace quorvantel::help {

/// Opens a menu of `owner` in the colours of `owner`, as of itself a menu has those of the desktop.
/// It is deleted when it closes.
void openContextMenu(QMenu& menu, const QWidget& owner, const QPoint& globalPosition);

} // namespace quorvantel::help
