#include "settings/SettingsAccessible.h"

#include "settings/DetailPane.h"
#include "settings/SegmentedPill.h"
#include "settings/SettingsText.h"
#include "settings/SettingsView.h"
#include "settings/SidebarSplitter.h"

#include <QAccessible>
#include <QAccessibleWidget>

#include <optional>

namespace quorvantel {

namespace {

std::optional<QAccessible::Role> roleOf(const QObject& object) {
    if (qobject_cast<const SettingsView*>(&object) != nullptr) {
        return QAccessible::Window;
    }
    if (qobject_cast<const DetailPane*>(&object) != nullptr ||
        qobject_cast<const SegmentedPill*>(&object) != nullptr) {
        return QAccessible::Grouping;
    }
    if (qobject_cast<const SidebarSplitter*>(object.parent()) != nullptr &&
        qobject_cast<const QSplitterHandle*>(&object) != nullptr) {
        return QAccessible::Separator;
    }
    const auto* const text = qobject_cast<const SettingsText*>(&object);
    return text != nullptr && text->textStyle() == SettingsText::Style::Warning
               ? std::optional(QAccessible::AlertMessage)
               : std::nullopt;
}

QAccessibleInterface* makeInterface(const QString& /*className*/, QObject* object) {
    const auto role = object == nullptr ? std::nullopt : roleOf(*object);
    return role ? new QAccessibleWidget(static_cast<QWidget*>(object), *role) : nullptr;
}

} // namespace

void installSettingsAccessible() {
    QAccessible::installFactory(makeInterface);
}

} // namespace quorvantel
