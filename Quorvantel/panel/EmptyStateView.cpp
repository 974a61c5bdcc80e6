#include "panel/EmptyStateView.h"

namespace quorvantel {

EmptyStateView::EmptyStateView(QWidget* parent) : QWidget(parent) {
    // The panel can be dragged here.
    setAttribute(Qt::WA_TransparentForMouseEvents);
    hide();
}

QString EmptyStateView::text() {
    return QStringLiteral("No results");
}

} // namespace quorvantel
