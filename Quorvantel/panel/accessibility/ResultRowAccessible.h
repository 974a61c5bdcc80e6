#pragma once

#include "catalogue/LaunchTarget.h"
#include "panel/ResultListView.h"

#include <QAccessibleInterface>

namespace quorvantel {

/// One result as assistive technology meets it: named like its target, described by the kind, with
/// a "press" action that opens it.
///
/// It stands for one target at one place of the list, whether in sight or not, and is no longer
/// valid once another target is there. Owned by Qt's registry of such objects, where
/// `ResultListAccessible` enters and deletes it.
class ResultRowAccessible : public QAccessibleInterface, public QAccessibleActionInterface {
public:
    /// `view` must outlive the row and hold a result at `index`.
    ResultRowAccessible(ResultListView& view, int index);

    int index() const { return m_index; }

    bool isValid() const override;
    QObject* object() const override { return nullptr; }
    QWindow* window() const override;
    QAccessibleInterface* parent() const override;
    QAccessibleInterface* child(int /*index*/) const override { return nullptr; }
    QAccessibleInterface* childAt(int /*x*/, int /*y*/) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface* /*child*/) const override { return -1; }
    QString text(QAccessible::Text kind) const override;
    void setText(QAccessible::Text /*kind*/, const QString& /*text*/) override {}
    QRect rect() const override;
    QAccessible::Role role() const override { return QAccessible::ListItem; }
    QAccessible::State state() const override;
    void* interface_cast(QAccessible::InterfaceType type) override;

    QStringList actionNames() const override;
    void doAction(const QString& name) override;
    QStringList keyBindingsForAction(const QString& name) const override;

private:
    ResultListView& m_view;
    int m_index;
    LaunchTarget m_target;
};

} // namespace quorvantel
