#include "panel/EmptyStateView.h"

namespace quorvantel {

EmptyStateView::EmptyStateView(QWidget* parent) : QWidget(parent) {
    // The panel can be dragged here.
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setAccessibleName(text());
    hide();
}

QString EmptyStateView::text() {
    return QStringLiteral("No results");
}

} // namespace quorvantel
