#include "panel/accessibility/ResultListAccessible.h"

#include "panel/accessibility/ResultRowAccessible.h"

#include <utility>

namespace quorvantel {

namespace {

void notify(QAccessibleInterface& row, QAccessible::Event type) {
    QAccessibleEvent event(&row, type);
    QAccessible::updateAccessibility(&event);
}

} // namespace

ResultListAccessible::ResultListAccessible(ResultListView& view)
    : QAccessibleWidget(&view, QAccessible::List) {
    // Once the events of now are through, of which the search field tells by itself: what a reader
    // says of the row would be cut short by what it says of the field.
    m_announcement.setSingleShot(true);
    m_announcement.setInterval(0);
    m_announcement.callOnTimeout([this] { announceSelection(); });
    QObject::connect(&view, &ResultListView::resultsChanged, &m_announcement,
                     [this] { dropOutdatedRows(); });
    QObject::connect(&view, &ResultListView::selectionChanged, &m_announcement,
                     qOverload<>(&QTimer::start));
}

ResultListAccessible::~ResultListAccessible() {
    for (const auto& [index, id] : m_rows) {
        QAccessible::deleteAccessibleInterface(id);
    }
}

ResultListView& ResultListAccessible::view() const {
    return static_cast<ResultListView&>(*widget());
}

int ResultListAccessible::childCount() const {
    return static_cast<int>(view().results().size());
}

QAccessibleInterface* ResultListAccessible::child(int index) const {
    if (index < 0 || index >= childCount()) {
        return nullptr;
    }
    if (const auto known = m_rows.find(index); known != m_rows.end()) {
        return QAccessible::accessibleInterface(known->second);
    }
    auto* const row = new ResultRowAccessible(view(), index);
    m_rows.emplace(index, QAccessible::registerAccessibleInterface(row));
    return row;
}

QAccessibleInterface* ResultListAccessible::childAt(int x, int y) const {
    return child(view().rowAt(view().mapFromGlobal(QPoint(x, y))));
}

int ResultListAccessible::indexOfChild(const QAccessibleInterface* child) const {
    const auto* const row = dynamic_cast<const ResultRowAccessible*>(child);
    return row != nullptr && row->parent() == this ? row->index() : -1;
}

QAccessibleInterface* ResultListAccessible::focusChild() const {
    return child(view().selectedIndex());
}

QString ResultListAccessible::text(QAccessible::Text kind) const {
    return kind == QAccessible::Name ? QStringLiteral("Results") : QAccessibleWidget::text(kind);
}

QStringList ResultListAccessible::actionNames() const {
    return {};
}

void ResultListAccessible::dropOutdatedRows() {
    for (auto entry = m_rows.begin(); entry != m_rows.end();) {
        const QAccessibleInterface* const row = QAccessible::accessibleInterface(entry->second);
        if (row != nullptr && row->isValid()) {
            ++entry;
            continue;
        }
        QAccessible::deleteAccessibleInterface(entry->second);
        entry = m_rows.erase(entry);
    }
}

void ResultListAccessible::announceSelection() {
    const int index = view().selectedIndex();
    const auto& results = view().results();
    const bool exists = index >= 0 && index < childCount();
    const auto target =
        exists ? std::optional(results[static_cast<std::size_t>(index)]) : std::nullopt;
    const int oldIndex = std::exchange(m_announcedIndex, index);
    const auto oldTarget = std::exchange(m_announcedTarget, target);
    if (oldIndex == index && oldTarget == target) {
        return;
    }
    if (const auto old = m_rows.find(oldIndex); old != m_rows.end() && oldIndex != index) {
        notify(*QAccessible::accessibleInterface(old->second), QAccessible::SelectionRemove);
    }
    if (QAccessibleInterface* const row = child(index)) {
        notify(*row, QAccessible::Selection);
        notify(*row, QAccessible::Focus);
    }
}

} // namespace quorvantel
