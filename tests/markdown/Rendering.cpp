#include "markdown/Rendering.h"

#include "markdown/MarkdownRenderer.h"

#include <QDebug>
#include <QTextCursor>
#include <QTextTable>

namespace quorvantel::testing {

namespace {

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

} // namespace

markdown::MarkdownStyle lightStyle() {
    markdown::MarkdownStyle style;
    style.font = QFont(QStringLiteral("DejaVu Sans"));
    style.font.setPixelSize(16);
    style.codeFont = QFont(QStringLiteral("DejaVu Sans Mono"));
    style.codeFont.setPixelSize(15);
    style.text = QColor(1, 1, 1);
    style.secondaryText = QColor(2, 2, 2);
    style.link = QColor(3, 3, 3);
    style.rule = QColor(4, 4, 4);
    style.tintedBackground = QColor(5, 5, 5);
    style.margin = 10;
    return style;
}

markdown::MarkdownStyle darkStyle() {
    markdown::MarkdownStyle style;
    style.font = QFont(QStringLiteral("DejaVu Sans Mono"));
    style.font.setPixelSize(24);
    style.codeFont = QFont(QStringLiteral("DejaVu Sans"));
    style.codeFont.setPixelSize(20);
    style.text = QColor(101, 1, 1);
    style.secondaryText = QColor(102, 2, 2);
    style.link = QColor(103, 3, 3);
    style.rule = QColor(104, 4, 4);
    style.tintedBackground = QColor(105, 5, 5);
    style.margin = 30;
    return style;
}

std::unique_ptr<QTextDocument> rendered(const QByteArray& text, const QUrl& baseUrl) {
    return markdown::renderMarkdown(text, baseUrl, lightStyle());
}

std::optional<QTextCharFormat> formatOf(const QTextDocument& document, const QString& text) {
    const QTextBlock block = blockOf(document, text);
    if (!block.isValid()) {
        return std::nullopt;
    }
    QTextCursor cursor(block);
    cursor.setPosition(block.position() +
                       static_cast<int>(block.text().indexOf(text) + text.size()));
    return cursor.charFormat();
}

QTextBlock blockOf(const QTextDocument& document, const QString& text) {
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        if (block.text().contains(text)) {
            return block;
        }
    }
    return {};
}

QStringList description(const QTextDocument& document) {
    QStringList lines;
    lines << QString::number(document.documentMargin()) << QString::number(document.indentWidth());
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        lines << QStringLiteral("block") + describe(block.blockFormat());
        lines << QStringLiteral("marker") + describe(block.charFormat());
        if (const auto* const table = QTextCursor(block).currentTable()) {
            lines << QStringLiteral("table") + describe(table->format());
            lines << QStringLiteral("cell") + describe(table->cellAt(QTextCursor(block)).format());
        }
        for (auto it = block.begin(); !it.atEnd(); ++it) {
            lines << it.fragment().text() + describe(it.fragment().charFormat());
        }
    }
    return lines;
}

} // namespace quorvantel::testing
