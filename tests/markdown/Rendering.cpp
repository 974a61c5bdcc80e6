#include "markdown/Rendering.h"

#include "markdown/FrameRole.h"
#include "markdown/MarkdownRenderer.h"

#include <QDebug>
#include <QTextCursor>
#include <QTextList>
#include <QTextTable>

namespace quorvantel::testing {

namespace {

using namespace Qt::StringLiterals;

QString describe(const QTextFormat& format) {
    QString text;
    const auto properties = format.properties();
    for (auto it = properties.begin(); it != properties.end(); ++it) {
        // Which table, list or frame it is differs from document to document.
        if (it.key() == QTextFormat::ObjectIndex) {
            continue;
        }
        QDebug(&text).nospace() << ' ' << it.key() << '=' << it.value();
    }
    return text;
}

/// A style of which no two values are equal, nor any to one of a style with another shade.
markdown::MarkdownStyle style(const std::pair<QString, QString>& families, int shade) {
    markdown::MarkdownStyle style;
    style.font = QFont(families.first);
    style.font.setPixelSize(16 + shade / 10);
    style.codeFont = QFont(families.second);
    style.codeFont.setPixelSize(15 + shade / 10);
    style.text = QColor(shade, 1, 1);
    style.secondaryText = QColor(shade, 2, 2);
    style.link = QColor(shade, 3, 3);
    style.rule = QColor(shade, 4, 4);
    style.tintedBackground = QColor(shade, 5, 5);
    style.margin = 10 + shade;
    return style;
}

/// The frames around a block, from the outside in, as `outline` says.
QString framesOf(const QTextBlock& block) {
    QString frames;
    for (const QTextFrame* frame = QTextCursor(block).currentFrame(); frame != nullptr;
         frame = frame->parentFrame()) {
        switch (static_cast<markdown::FrameRole>(
            frame->frameFormat().intProperty(markdown::frameRoleProperty))) {
        case markdown::FrameRole::Table: {
            const Qt::Alignment alignment = block.blockFormat().alignment();
            frames.prepend(alignment == Qt::AlignRight  ? u"|>"
                           : alignment == Qt::AlignLeft ? u"|<"
                                                        : u"|=");
            break;
        }
        case markdown::FrameRole::Code:
            frames.prepend(QString(u' ').repeated(2 * frame->frameFormat().intProperty(
                                                          markdown::frameIndentProperty)) +
                           u'`');
            break;
        case markdown::FrameRole::Quotation:
            frames.prepend(u'>');
            break;
        }
    }
    return frames;
}

QString markerOf(const QTextBlock& block) {
    const QTextBlockFormat format = block.blockFormat();
    const auto levels = [](int count) { return QString(u' ').repeated(2 * count); };
    if (const QTextList* const list = block.textList()) {
        const QTextListFormat::Style style = list->format().style();
        return levels(list->format().indent() - 1) +
               (style == QTextListFormat::ListDisc     ? u"•"_s
                : style == QTextListFormat::ListCircle ? u"◦"_s
                                                       : list->itemText(block)) +
               u' ';
    }
    if (format.hasProperty(QTextFormat::BlockTrailingHorizontalRulerWidth)) {
        return u"---"_s;
    }
    return levels(format.indent()) + QString(u'#').repeated(format.headingLevel());
}

} // namespace

markdown::MarkdownStyle lightStyle() {
    return style({u"DejaVu Sans"_s, u"DejaVu Sans Mono"_s}, 1);
}

markdown::MarkdownStyle darkStyle() {
    return style({u"DejaVu Sans Mono"_s, u"DejaVu Sans"_s}, 101);
}

std::unique_ptr<QTextDocument> rendered(const QByteArray& text, const QUrl& baseUrl) {
    return markdown::renderMarkdown(text, baseUrl, lightStyle());
}

std::optional<QTextCharFormat> formatOf(const QTextDocument& document, const char* text) {
    const QTextBlock block = blockOf(document, text);
    if (!block.isValid()) {
        return std::nullopt;
    }
    const QString part = QString::fromUtf8(text);
    QTextCursor cursor(block);
    cursor.setPosition(block.position() +
                       static_cast<int>(block.text().indexOf(part) + part.size()));
    return cursor.charFormat();
}

QTextBlock blockOf(const QTextDocument& document, const char* text) {
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        if (block.text().contains(QString::fromUtf8(text))) {
            return block;
        }
    }
    return {};
}

QStringList outline(const QTextDocument& document) {
    QStringList lines;
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        if (!block.text().isEmpty()) {
            lines << framesOf(block) + markerOf(block) +
                         block.text().replace(QChar::LineSeparator, u'⏎').remove(QChar(0x200B));
        }
    }
    return lines;
}

QStringList description(const QTextDocument& document) {
    QStringList lines;
    lines << QString::number(document.documentMargin()) << QString::number(document.indentWidth());
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        lines << u"block"_s + describe(block.blockFormat());
        lines << u"marker"_s + describe(block.charFormat());
        if (const auto* const table = QTextCursor(block).currentTable()) {
            lines << u"table"_s + describe(table->format());
            lines << u"cell"_s + describe(table->cellAt(QTextCursor(block)).format());
        }
        for (auto it = block.begin(); !it.atEnd(); ++it) {
            lines << it.fragment().text() + describe(it.fragment().charFormat());
        }
    }
    return lines;
}

} // namespace quorvantel::testing
