#include "panel/ResultRowView.h"

#include "panel/LauncherLayout.h"
#include "shapes/ContinuousCorners.h"
#include "shapes/PixelGrid.h"
#include "theme/Contrast.h"
#include "theme/InterfaceFont.h"

#include <QPainter>

#include <utility>

namespace quorvantel {

namespace {

constexpr int horizontalPadding = 12;
constexpr int spacing = 8;
constexpr int iconSize = 28;
constexpr int iconRadius = 7;
constexpr int glyphSize = 17;
constexpr int highlightRadius = 8;
constexpr int nameSize = 15;
constexpr int kindSize = 11;
constexpr int textGap = 1;
constexpr int returnHintWidth = 20;

platform::Image placeholderGlyph(const LaunchTarget& target) {
    const platform::Image& icon = target.icon();
    if (icon.source == platform::Image::Source::Symbol) {
        return icon;
    }
    if (!icon.substitute.isEmpty()) {
        return platform::Image::symbol(icon.substitute, {});
    }
    return platform::Image::symbol(
        target.isApp() ? QStringLiteral("app.dashed") : QStringLiteral("gearshape"), {});
}

} // namespace

ResultRowView::ResultRowView(const ThemedRoot& theme, IconCache& icons, QWidget* parent)
    : QWidget(parent), m_theme(theme), m_icons(icons) {
    // The list handles the mouse for all its rows.
    setAttribute(Qt::WA_TransparentForMouseEvents);
    connect(&theme, &ThemedRoot::themeChanged, this, qOverload<>(&QWidget::update));
    connect(&icons, &IconCache::decoded, this, [this](const platform::Image& image) {
        if (m_target && m_target->icon() == image) {
            update();
        }
    });
}

void ResultRowView::setTarget(const LaunchTarget& target) {
    const bool isSame = m_target == target;
    const bool looksTheSame = isSame && m_target->displayName() == target.displayName() &&
                              m_target->icon() == target.icon();
    m_isHovered = m_isHovered && isSame;
    m_target = target;
    if (!looksTheSame) {
        update();
    }
}

void ResultRowView::setSelected(bool isSelected) {
    if (std::exchange(m_isSelected, isSelected) != isSelected) {
        update();
    }
}

void ResultRowView::setHovered(bool isHovered) {
    if (std::exchange(m_isHovered, isHovered) != isHovered) {
        update();
    }
}

void ResultRowView::setTopPick(bool isTopPick) {
    if (std::exchange(m_isTopPick, isTopPick) != isTopPick) {
        update();
    }
}

QString ResultRowView::kindText(const LaunchTarget& target) {
    return target.isApp() ? QStringLiteral("App") : QStringLiteral("System Setting");
}

void ResultRowView::paintEvent(QPaintEvent* /*event*/) {
    if (!m_target) {
        return;
    }
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    clipToPanel(painter);
    drawHighlight(painter);

    const QRect content = rect().adjusted(horizontalPadding, 0, -horizontalPadding, 0);
    drawIcon(painter, QRect(content.left(), (height() - iconSize) / 2, iconSize, iconSize));
    QRect column = content.adjusted(iconSize + spacing, 0, 0, 0);
    if (m_isTopPick && m_isSelected) {
        column.adjust(0, 0, -(returnHintWidth + spacing), 0);
        QFont font = interfaceFont(nameSize);
        font.setWeight(QFont::Medium);
        painter.setFont(font);
        painter.setPen(m_theme.theme().secondaryText.toQColor());
        painter.drawText(content, Qt::AlignRight | Qt::AlignVCenter, QStringLiteral("↩"));
    }
    drawTexts(painter, column);
}

void ResultRowView::clipToPanel(QPainter& painter) const {
    const QWidget* const list = parentWidget();
    if (list == nullptr || geometry().bottom() < list->height() - LauncherLayout::listPadding) {
        return;
    }
    // The lower part of the panel as the row sees it, so far up that its upper corners do not show.
    constexpr int above = -4 * LauncherLayout::cornerRadius;
    const QRectF panel(-x(), above, list->width(), list->height() - y() - above);
    const double border = PixelGrid::hairline(painter);
    painter.setClipPath(continuousRoundedRect(
        PixelGrid::aligned(painter, panel).adjusted(border, border, -border, -border),
        LauncherLayout::cornerRadius - border));
}

ThemeColor ResultRowView::highlight() const {
    if (m_isSelected) {
        return m_theme.theme().selectionFill;
    }
    return m_isHovered ? m_theme.theme().hoverFill : ThemeColor();
}

void ResultRowView::drawHighlight(QPainter& painter) const {
    const ResolvedTheme& theme = m_theme.theme();
    if (m_isSelected || m_isHovered) {
        fillContinuousRoundedRect(painter, rect(), highlightRadius, highlight().toQColor());
    }
    const bool isOutlined = m_theme.increasesContrast() && (m_isSelected || m_isHovered);
    if (m_isTopPick || isOutlined) {
        const bool isSelected = m_isSelected || m_isTopPick;
        strokeContinuousRoundedRect(
            painter, rect(), highlightRadius,
            (isSelected ? theme.selectionRing : theme.separator).toQColor());
    }
}

void ResultRowView::drawIcon(QPainter& painter, const QRect& frame) const {
    const platform::Image& icon = m_target->icon();
    if (icon.isNull() || icon.source == platform::Image::Source::Symbol) {
        drawGlyphTile(painter, frame, placeholderGlyph(*m_target));
        return;
    }
    const int size = icon.isTemplate() ? glyphSize : iconSize;
    const auto pixmap = m_icons.pixmap(icon, size, devicePixelRatioF());
    if (!pixmap) {
        return;
    }
    if (pixmap->isNull() || icon.isTemplate()) {
        drawGlyphTile(painter, frame, pixmap->isNull() ? placeholderGlyph(*m_target) : icon);
        return;
    }
    const QRectF pixels = PixelGrid::aligned(painter, frame);
    painter.save();
    painter.setClipPath(continuousRoundedRect(pixels, iconRadius), Qt::IntersectClip);
    painter.drawPixmap(pixels.topLeft(), *pixmap);
    painter.restore();
}

void ResultRowView::drawGlyphTile(QPainter& painter, const QRect& frame,
                                  const platform::Image& glyph) const {
    const ResolvedTheme& theme = m_theme.theme();
    // On some highlights the elevated background would all but vanish.
    const ThemeColor fill = mostLegible({theme.elevatedBackground, theme.primaryBackground},
                                        over(highlight(), theme.primaryBackground));
    fillContinuousRoundedRect(painter, frame, iconRadius, fill.toQColor());
    QRectF glyphFrame(0, 0, glyphSize, glyphSize);
    glyphFrame.moveCenter(QRectF(frame).center());
    drawSymbol(painter, m_icons, glyph, glyphFrame, theme.accent.toQColor());
}

void ResultRowView::drawTexts(QPainter& painter, const QRect& column) const {
    const ResolvedTheme& theme = m_theme.theme();
    const QFont nameFont = interfaceFont(nameSize);
    const QFont kindFont = interfaceFont(kindSize);
    const QFontMetrics nameMetrics(nameFont);
    const QFontMetrics kindMetrics(kindFont);
    const int textHeight = nameMetrics.height() + textGap + kindMetrics.height();
    const int top = column.top() + (column.height() - textHeight) / 2;

    const QRect nameLine(column.left(), top, column.width(), nameMetrics.height());
    const QRect kindLine(column.left(), nameLine.top() + nameLine.height() + textGap,
                         column.width(), kindMetrics.height());
    // Glyphs of a substituted font may reach below the line of the interface font.
    const int alignment = Qt::AlignLeft | Qt::AlignAbsolute | Qt::AlignVCenter |
                          Qt::TextSingleLine | Qt::TextDontClip;
    painter.setFont(nameFont);
    painter.setPen(theme.primaryText.toQColor());
    // A name stands beside its icon whatever its script, but reads, and ends, in its own direction.
    const QString name = m_target->displayName();
    painter.setLayoutDirection(name.isRightToLeft() ? Qt::RightToLeft : Qt::LeftToRight);
    painter.drawText(nameLine, alignment,
                     nameMetrics.elidedText(name, Qt::ElideRight, nameLine.width()));
    painter.setLayoutDirection(Qt::LeftToRight);
    painter.setFont(kindFont);
    painter.setPen(theme.secondaryText.toQColor());
    painter.drawText(kindLine, alignment, kindText(*m_target));
}

} // namespace quorvantel
