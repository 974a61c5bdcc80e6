#include "panel/accessibility/PanelAccessible.h"

#include "panel/EmptyStateView.h"
#include "panel/LauncherView.h"
#include "panel/accessibility/HostingViewAccessible.h"
#include "panel/accessibility/ResultListAccessible.h"

namespace quorvantel {

namespace {

QAccessibleInterface* makeInterface(const QString& /*className*/, QObject* object) {
    if (auto* const hostingView = qobject_cast<FirstMouseHostingView*>(object)) {
        return new HostingViewAccessible(*hostingView);
    }
    if (auto* const view = qobject_cast<LauncherView*>(object)) {
        return new PanelAccessible(*view, QAccessible::Client);
    }
    if (auto* const list = qobject_cast<ResultListView*>(object)) {
        return new ResultListAccessible(*list);
    }
    if (auto* const emptyState = qobject_cast<EmptyStateView*>(object)) {
        // Readers speak a notification when it comes to be shown.
        return new PanelAccessible(*emptyState, QAccessible::Notification, EmptyStateView::text());
    }
    return nullptr;
}

} // namespace

PanelAccessible::PanelAccessible(QWidget& widget, QAccessible::Role role, const QString& name)
    : QAccessibleWidget(&widget, role, name) {}

void PanelAccessible::install() {
    [[maybe_unused]] static const bool isInstalled = [] {
        QAccessible::installFactory(makeInterface);
        return true;
    }();
}

QAccessible::State PanelAccessible::state() const {
    QAccessible::State state = QAccessibleWidget::state();
    state.focused = false;
    return state;
}

QStringList PanelAccessible::actionNames() const {
    return {};
}

} // namespace quorvantel
