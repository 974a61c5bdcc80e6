#pragma once

#include "catalogue/LaunchTarget.h"
#include "drawing/IconCache.h"
#include "theme/ThemedRoot.h"

#include <QWidget>

#include <optional>

namespace quorvantel {

/// Draws one launch target in the result list: its icon, its name, what kind of thing it is, and
/// the highlight of selection or hover. 48 points high. The list decides everything; the row only
/// draws.
class ResultRowView : public QWidget {
    Q_OBJECT

public:
    /// `theme` and `icons` must outlive the row.
    ResultRowView(const ThemedRoot& theme, IconCache& icons, QWidget* parent = nullptr);

    /// Shows a target. A row that shows another target than before is no longer hovered.
    void setTarget(const LaunchTarget& target);
    const std::optional<LaunchTarget>& target() const { return m_target; }

    void setSelected(bool isSelected);
    bool isSelected() const { return m_isSelected; }

    void setHovered(bool isHovered);
    bool isHovered() const { return m_isHovered; }

    /// Marks the best result with a ring and, while it is selected, with the Return key's symbol.
    /// The launcher itself never does.
    void setTopPick(bool isTopPick);

    /// What kind of thing a target is, in a word or two.
    static QString kindText(const LaunchTarget& target);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    /// A row that is scrolled across the lower edge of the panel ends inside the panel's border and
    /// rounded corners. The list around it reaches down to that edge.
    void clipToPanel(QPainter& painter) const;
    ThemeColor highlight() const;
    void drawHighlight(QPainter& painter) const;
    void drawIcon(QPainter& painter, const QRect& frame) const;
    void drawGlyphTile(QPainter& painter, const QRect& frame, const platform::Image& glyph) const;
    void drawTexts(QPainter& painter, const QRect& column) const;

    const ThemedRoot& m_theme;
    IconCache& m_icons;
    std::optional<LaunchTarget> m_target;
    bool m_isSelected = false;
    bool m_isHovered = false;
    bool m_isTopPick = false;
};

} // namespace quorvantel
