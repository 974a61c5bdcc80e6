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

bool HostingViewAccessible::isOnScreen() const {
    return static_cast<const FirstMouseHostingView*>(widget())->isOnScreen();
}

} // namespace quorvantel
