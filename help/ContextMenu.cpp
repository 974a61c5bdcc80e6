#include "help/ContextMenu.h"

#include <QMenu>

namespace quorvantel::help {

void openContextMenu(QMenu& menu, const QWidget& owner, const QPoint& globalPosition) {
    menu.setAttribute(Qt::WA_DeleteOnClose);
    menu.setPalette(owner.palette());
    const QList<QAction*> actions = menu.actions();
    for (QAction* const action : actions) {
        // Icons, too, have the colours of the desktop.
        action->setIconVisibleInMenu(false);
    }
    menu.popup(globalPosition);
}

} // namespace quorvantel::help
