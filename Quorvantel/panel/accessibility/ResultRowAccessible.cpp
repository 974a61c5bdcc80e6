#include "panel/accessibility/ResultRowAccessible.h"

#include "panel/ResultRowView.h"

#include <QWindow>

namespace quorvantel {

namespace {

bool holds(const ResultListView& view, int index, const LaunchTarget& target) {
    const auto& results = view.results();
    return index < static_cast<int>(results.size()) &&
           results[static_cast<std::size_t>(index)] == target;
}

} // namespace

ResultRowAccessible::ResultRowAccessible(ResultListView& view, int index)
    : m_view(view), m_index(index), m_target(view.results()[static_cast<std::size_t>(index)]) {}

bool ResultRowAccessible::isValid() const {
    return holds(m_view, m_index, m_target);
}

QWindow* ResultRowAccessible::window() const {
    return m_view.window()->windowHandle();
}

QAccessibleInterface* ResultRowAccessible::parent() const {
    return QAccessible::queryAccessibleInterface(&m_view);
}

QString ResultRowAccessible::text(QAccessible::Text kind) const {
    if (!isValid()) {
        return {};
    }
    // The list's own value, since a target may come to have another name.
    const LaunchTarget& target = m_view.results()[static_cast<std::size_t>(m_index)];
    switch (kind) {
    case QAccessible::Name:
        return target.displayName();
    case QAccessible::Description:
        return ResultRowView::kindText(target);
    default:
        return {};
    }
}

QRect ResultRowAccessible::rect() const {
    const QRect row = m_view.rowRect(m_index);
    return {m_view.mapToGlobal(row.topLeft()), row.size()};
}

QAccessible::State ResultRowAccessible::state() const {
    const bool isSelected = m_index == m_view.selectedIndex();
    QAccessible::State state;
    state.selectable = true;
    state.focusable = true;
    state.selected = isSelected;
    state.focused = isSelected && m_view.isVisible() && m_view.isActiveWindow();
    state.invisible = !m_view.isVisible();
    state.offscreen = !m_view.rect().intersects(m_view.rowRect(m_index));
    return state;
}

void* ResultRowAccessible::interface_cast(QAccessible::InterfaceType type) {
    return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface*>(this)
                                                : nullptr;
}

QStringList ResultRowAccessible::actionNames() const {
    return {pressAction()};
}

void ResultRowAccessible::doAction(const QString& name) {
    if (name != pressAction()) {
        return;
    }
    // Later, since opening empties the list and with it ends this object, which the caller still
    // uses.
    QMetaObject::invokeMethod(
        &m_view,
        [&view = m_view, index = m_index, target = m_target] {
            if (holds(view, index, target)) {
                Q_EMIT view.rowClicked(index);
            }
        },
        Qt::QueuedConnection);
}

QStringList ResultRowAccessible::keyBindingsForAction(const QString& /*name*/) const {
    return {};
}

} // namespace quorvantel
