#include "markdown/DocumentStyler.h"

#include "markdown/BlockRole.h"
#include "markdown/FrameRole.h"
#include "markdown/TextRole.h"

#include <QFontInfo>
#include <QFontMetricsF>
#include <QTextCursor>
#include <QTextList>

#include <algorithm>
#include <array>
#include <vector>

namespace quorvantel::markdown {

namespace {

/// Sizes of headings of level 1 to 6, relative to running text.
constexpr std::array headingScale{1.75, 1.4, 1.2, 1.05, 1.0, 0.92};

/// Space above headings of level 1 to 6, in em.
constexpr std::array headingSpace{0.4, 1.5, 1.2, 1.0, 0.9, 0.9};

constexpr double quotationBarWidth = 3;

/// Space between lines, in em.
constexpr double leading = 0.35;
constexpr double headingLeading = 0.1;

std::size_t headingIndex(int level) {
    return static_cast<std::size_t>(std::clamp(level, 1, 6) - 1);
}

struct StyledRun {
    int position;
    int length;
    QTextCharFormat format;
};

std::vector<StyledRun> runsOf(const QTextBlock& block) {
    std::vector<StyledRun> runs;
    for (auto it = block.begin(); !it.atEnd(); ++it) {
        const QTextFragment fragment = it.fragment();
        runs.push_back({fragment.position(), fragment.length(), fragment.charFormat()});
    }
    return runs;
}

void styleFrames(const QTextFrame& frame, const DocumentStyler& styler) {
    for (QTextFrame* const child : frame.childFrames()) {
        if (auto* const table = qobject_cast<QTextTable*>(child)) {
            styler.style(*table);
        }
        styleFrames(*child, styler);
    }
}

} // namespace

DocumentStyler::DocumentStyler(const MarkdownStyle& style)
    : m_style(style), m_lineUnit(QFontInfo(style.font).pixelSize()) {}

double DocumentStyler::bodySize() const {
    return m_style.font.pixelSize() > 0 ? m_style.font.pixelSize() : m_style.font.pointSizeF();
}

void DocumentStyler::setSize(QFont& font, double factor) const {
    if (m_style.font.pixelSize() > 0) {
        font.setPixelSize(std::max(1, qRound(bodySize() * factor)));
    } else {
        font.setPointSizeF(std::max(1.0, bodySize() * factor));
    }
}

void DocumentStyler::styleWhole(QTextDocument& document) const {
    document.setDefaultFont(m_style.font);
    document.setDocumentMargin(m_style.margin);
    document.setIndentWidth(em(1.8));
}

void DocumentStyler::style(QTextCharFormat& format, int headingLevel) const {
    const int role = format.intProperty(TextRole::property);
    const bool isCode = (role & (TextRole::code | TextRole::codeBlock)) != 0;
    QFont font = isCode ? m_style.codeFont : m_style.font;
    if (headingLevel > 0) {
        setSize(font, headingScale[headingIndex(headingLevel)]);
    }
    const bool isStrong = (role & (TextRole::strong | TextRole::tableHeader)) != 0;
    if (isStrong || headingLevel > 0) {
        font.setWeight(isStrong && headingLevel == 0 ? QFont::Bold : QFont::DemiBold);
    }
    font.setItalic((role & (TextRole::emphasis | TextRole::missingImage)) != 0);
    font.setStrikeOut((role & TextRole::strikethrough) != 0);
    font.setUnderline((role & TextRole::link) != 0);
    format.setFont(font);

    constexpr int mutedRoles =
        TextRole::quotation | TextRole::missingImage | TextRole::uncheckedBox;
    format.setForeground((role & mutedRoles) != 0 ? m_style.secondaryText : m_style.text);
    if ((role & (TextRole::link | TextRole::checkedBox)) != 0) {
        format.setForeground(m_style.link);
    }
    if ((role & TextRole::code) != 0) {
        format.setBackground(m_style.tintedBackground);
    }
}

void DocumentStyler::style(QTextBlockFormat& format) const {
    const auto role = static_cast<BlockRole>(format.intProperty(blockRoleProperty));
    const int level = format.headingLevel();
    double above = 0;
    double below = em(0.75);
    switch (role) {
    case BlockRole::Heading:
        above = em(headingSpace[headingIndex(level)] * headingScale[headingIndex(level)]);
        below = em(0.5);
        break;
    case BlockRole::TightItem:
        below = format.boolProperty(lastInListProperty) ? below : em(0.2);
        break;
    case BlockRole::Code:
    case BlockRole::TableCell:
        below = 0;
        break;
    case BlockRole::Rule:
        above = em(0.5);
        format.setBackground(m_style.rule);
        break;
    case BlockRole::Paragraph:
        break;
    }
    format.setTopMargin(above);
    format.setBottomMargin(format.boolProperty(lastInFrameProperty) ? 0 : below);
    if (role != BlockRole::Rule) {
        // A distance, since a percentage would count for images as well.
        format.setLineHeight(em(level > 0 ? headingLeading : leading),
                             QTextBlockFormat::LineDistanceHeight);
    }
    const QString marker = format.stringProperty(hangingMarkerProperty);
    if (!marker.isEmpty()) {
        format.setTextIndent(-QFontMetricsF(m_style.font).horizontalAdvance(marker));
    }
}

void DocumentStyler::style(QTextTable& table) const {
    QTextTableFormat format = table.format();
    format.setBorder(0);
    format.setBorderCollapse(true);
    format.setCellSpacing(0);
    format.setCellPadding(0);
    // The space below the block before does not count next to a table.
    format.setTopMargin(em(0.6));
    format.setBottomMargin(em(1.1));
    format.setLeftMargin(format.intProperty(frameIndentProperty) * em(1.8));
    table.setFormat(format);
    for (int row = 0; row < table.rows(); ++row) {
        for (int column = 0; column < table.columns(); ++column) {
            table.cellAt(row, column).setFormat(cellFormat(table, row, column));
        }
    }
}

QTextTableCellFormat DocumentStyler::cellFormat(const QTextTable& table, int row,
                                                int column) const {
    QTextTableCellFormat format = table.cellAt(row, column).format().toTableCellFormat();
    switch (static_cast<FrameRole>(table.format().intProperty(frameRoleProperty))) {
    case FrameRole::Code:
        format.setBackground(m_style.tintedBackground);
        format.setPadding(em(0.7));
        // Lines are taller at the bottom already.
        format.setBottomPadding(em(0.45));
        break;
    case FrameRole::Quotation:
        format.setLeftBorder(quotationBarWidth);
        format.setLeftBorderStyle(QTextFrameFormat::BorderStyle_Solid);
        format.setLeftBorderBrush(m_style.rule);
        format.setLeftPadding(em(0.9));
        format.setTopPadding(em(0.15));
        format.setBottomPadding(em(0.15));
        break;
    case FrameRole::Table:
        format.setTopPadding(em(0.3));
        format.setBottomPadding(em(0.3));
        format.setLeftPadding(em(0.6));
        format.setRightPadding(em(0.6));
        format.setBottomBorder(1);
        format.setBottomBorderStyle(QTextFrameFormat::BorderStyle_Solid);
        format.setBottomBorderBrush(m_style.rule);
        if (row < table.format().headerRowCount()) {
            format.setBackground(m_style.tintedBackground);
        }
        break;
    }
    return format;
}

void DocumentStyler::restyle(QTextDocument& document) const {
    styleWhole(document);
    QTextCursor cursor(&document);
    cursor.beginEditBlock();
    styleFrames(*document.rootFrame(), *this);
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        QTextBlockFormat blockFormat = block.blockFormat();
        if (!blockFormat.hasProperty(blockRoleProperty)) {
            continue;
        }
        const int headingLevel = blockFormat.headingLevel();
        style(blockFormat);
        cursor.setPosition(block.position());
        cursor.setBlockFormat(blockFormat);
        QTextCharFormat markerFormat = block.charFormat();
        style(markerFormat, headingLevel);
        cursor.setBlockCharFormat(markerFormat);
        for (StyledRun& run : runsOf(block)) {
            style(run.format, headingLevel);
            cursor.setPosition(run.position);
            cursor.setPosition(run.position + run.length, QTextCursor::KeepAnchor);
            cursor.setCharFormat(run.format);
        }
    }
    cursor.endEditBlock();
}

} // namespace quorvantel::markdown
