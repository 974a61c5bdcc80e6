#pragma once

#include "drawing/IconCache.h"
#include "theme/ThemedRoot.h"

#include <QStyledItemDelegate>

namespace quorvantel {

/// Draws a row of the settings window's sidebar: a symbol and a title, on a rounded rectangle while
/// the row is selected.
class SidebarRowDelegate : public QStyledItemDelegate {
    Q_OBJECT

public:
    /// The role under which an item holds the name of its symbol.
    static constexpr int symbolRole = Qt::UserRole;

    /// The references must outlive the delegate.
    SidebarRowDelegate(const ThemedRoot& theme, IconCache& icons, QObject* parent = nullptr);

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;

private:
    const ThemedRoot& m_theme;
    IconCache& m_icons;
};

} // namespace quorvantel
