#include "panel/accessibility/HostingViewAccessible.h"

namespace quorvantel {

HostingViewAccessible::HostingViewAccessible(FirstMouseHostingView& hostingView)
    : PanelAccessible(hostingView, QAccessible::Dialog) {}

QAccessible::State HostingViewAccessible::state() const {
    QAccessible::State state = PanelAccessible::state();
    state.invisible = !isOnScreen();
    return state;
}

int HostingViewAccessible::childCount() const {
    return isOnScreen() ? PanelAccessible::childCount() : 0;
}

QAccessibleInterface* HostingViewAccessible::child(int index) const {
    return isOnScreen() ? PanelAccessible::child(index) : nullptr;
}

QRect HostingViewAccessible::rect() const {
    const LauncherView& view = hostingView().view();
    return {view.mapToGlobal(QPoint()), view.size()};
}

const FirstMouseHostingView& HostingViewAccessible::hostingView() const {
    return static_cast<const FirstMouseHostingView&>(*widget());
}

bool HostingViewAccessible::isOnScreen() const {
    return hostingView().surface().isVisible();
}

} // namespace quorvantel
