#pragma once

#include <QAccessibleWidget>

namespace quorvantel {

/// A part of the panel that holds other parts, as assistive technology meets it. It hands the
/// keyboard focus to the search field and does not claim it besides.
class PanelAccessible : public QAccessibleWidget {
public:
    PanelAccessible(QWidget& widget, QAccessible::Role role, const QString& name = {});

    /// Makes every panel that exists and will exist accessible. More calls change nothing.
    static void install();

    QAccessible::State state() const override;
    QStringList actionNames() const override;
};

} // namespace quorvantel
