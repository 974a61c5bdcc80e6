#include "settings/SidebarRowDelegate.h"

#include "settings/FocusRing.h"
#include "shapes/ContinuousCorners.h"
#include "theme/ControlColors.h"
#include "theme/InterfaceFont.h"

#include <QPainter>

namespace quorvantel {

namespace {

constexpr int rowHeight = 32;
constexpr int rowSpacing = 2;
constexpr int horizontalPadding = 8;
constexpr int symbolSize = 16;
constexpr int symbolSpacing = 8;
constexpr int fontSize = 13;
constexpr double cornerRadius = 8;

} // namespace

SidebarRowDelegate::SidebarRowDelegate(const ThemedRoot& theme, IconCache& icons, QObject* parent)
    : QStyledItemDelegate(parent), m_theme(theme), m_icons(icons) {}

QSize SidebarRowDelegate::sizeHint(const QStyleOptionViewItem& /*option*/,
                                   const QModelIndex& /*index*/) const {
    return {0, rowHeight + rowSpacing};
}

void SidebarRowDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                               const QModelIndex& index) const {
    const ResolvedTheme& theme = m_theme.theme();
    const ControlColors colors = controlColors(theme);
    const QRect row = option.rect.adjusted(0, 0, 0, -rowSpacing);
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    const bool isSelected = option.state.testFlag(QStyle::State_Selected);
    if (isSelected) {
        painter->fillPath(continuousRoundedRect(row, cornerRadius), theme.selectionFill.toQColor());
        if (m_theme.increasesContrast()) {
            strokeContinuousRoundedRect(*painter, row, cornerRadius,
                                        theme.selectionRing.toQColor());
        }
    }
    if (option.state.testFlag(QStyle::State_HasFocus) && showsFocus(*option.widget)) {
        drawFocusRing(*painter, row, cornerRadius, colors.accent);
    }

    const QRect content = row.adjusted(horizontalPadding, 0, -horizontalPadding, 0);
    drawSymbol(*painter, m_icons, platform::Image::symbol(index.data(symbolRole).toString(), {}),
               {content.left() + 0.0, content.top() + (content.height() - symbolSize) / 2.0,
                symbolSize, symbolSize},
               (isSelected ? colors.accent : colors.secondary).toQColor());
    painter->setFont(interfaceFont(fontSize));
    painter->setPen(theme.primaryText.toQColor());
    painter->drawText(content.adjusted(symbolSize + symbolSpacing, 0, 0, 0),
                      Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                      index.data(Qt::DisplayRole).toString());
    painter->restore();
}

} // namespace quorvantel
