#pragma once

#include "catalogue/LaunchTarget.h"
#include "panel/ResultListView.h"

#include <QAccessibleWidget>
#include <QTimer>

#include <optional>
#include <unordered_map>

namespace quorvantel {

/// The result list as assistive technology meets it (AT-SPI on Linux): a list with a child for
/// every result, those out of sight included.
///
/// A child is made when it is first asked for, so ten thousand results cost what the reader reads
/// of them. It stands for one target at one place and ends when another target takes that place.
/// The keyboard focus stays in the search field while the selection moves here; so the selected row
/// says that it has the focus too, which is what makes screen readers speak it. That a list has
/// other children is not told: Qt would then make and name every one of them.
class ResultListAccessible : public QAccessibleWidget {
public:
    explicit ResultListAccessible(ResultListView& view);
    ~ResultListAccessible() override;

    ResultListView& view() const;

    int childCount() const override;
    QAccessibleInterface* child(int index) const override;
    QAccessibleInterface* childAt(int x, int y) const override;
    int indexOfChild(const QAccessibleInterface* child) const override;
    QAccessibleInterface* focusChild() const override;
    QString text(QAccessible::Text kind) const override;
    QStringList actionNames() const override;

private:
    void dropOutdatedRows();
    void announceSelection();

    /// The children that were asked for, by their index.
    mutable std::unordered_map<int, QAccessible::Id> m_rows;
    int m_announcedIndex = -1;
    std::optional<LaunchTarget> m_announcedTarget;
    QTimer m_announcement;
};

} // namespace quorvantel
