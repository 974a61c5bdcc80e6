#include "markdown/MarkdownRenderer.h"

#include "markdown/Rendering.h"

#include <QTextCursor>
#include <QTextList>
#include <QTextTable>

#include <gtest/gtest.h>

namespace quorvantel {
namespace {

using namespace testing;

QTextTable* tableAt(const QTextDocument& document, const QString& text) {
    return QTextCursor(blockOf(document, text)).currentTable();
}

int tableDepth(const QTextDocument& document, const QString& text) {
    int depth = 0;
    for (QTextFrame* frame = QTextCursor(blockOf(document, text)).currentFrame();
         frame != document.rootFrame(); frame = frame->parentFrame()) {
        ++depth;
    }
    return depth;
}

TEST(MarkdownRenderer, HeadingsHaveLevelsAndShrinkingSizes) {
    const auto document = rendered("# One\n## Two\n### Three\n#### Four\n##### Five\n"
                                   "###### Six ######\nSetext\n===\n####### Seven\n");
    double last = 1000;
    int level = 0;
    for (const char* const name : {"One", "Two", "Three", "Four", "Five", "Six"}) {
        const QString text = QString::fromUtf8(name);
        EXPECT_EQ(blockOf(*document, text).blockFormat().headingLevel(), ++level) << name;
        const int size = formatOf(*document, text)->font().pixelSize();
        EXPECT_LT(size, last) << name;
        last = size;
    }
    EXPECT_EQ(blockOf(*document, QStringLiteral("Setext")).blockFormat().headingLevel(), 1);
    EXPECT_EQ(blockOf(*document, QStringLiteral("Seven")).blockFormat().headingLevel(), 0);
}

TEST(MarkdownRenderer, HeadingsAreAnchorsNamedAfterTheirText) {
    const auto document =
        rendered("# Getting *Started*, twice!\n\n# Getting started twice\n\n# Ü 2\n");
    const auto anchor = [&](const char* text) {
        return formatOf(*document, QString::fromUtf8(text))->anchorNames();
    };
    EXPECT_EQ(anchor("G"), QStringList{QStringLiteral("getting-started-twice")});
    const QTextBlock second = blockOf(*document, QStringLiteral("Getting started twice"));
    EXPECT_EQ(second.begin().fragment().charFormat().anchorNames(),
              QStringList{QStringLiteral("getting-started-twice-1")});
    EXPECT_EQ(anchor("Ü"), QStringList{QStringLiteral("ü-2")});
}

TEST(MarkdownRenderer, InlineStylesCombine) {
    const auto document =
        rendered("plain *slanted **both*** **fat** ~~gone~~ `a*b*` [*link*](x.md)");
    const auto font = [&](const char* text) {
        return formatOf(*document, QString::fromUtf8(text))->font();
    };
    EXPECT_FALSE(font("plain").italic() || font("plain").bold());
    EXPECT_TRUE(font("slanted").italic() && !font("slanted").bold());
    EXPECT_TRUE(font("both").italic() && font("both").bold());
    EXPECT_TRUE(font("fat").bold() && !font("fat").italic());
    EXPECT_TRUE(font("gone").strikeOut());
    EXPECT_TRUE(font("link").italic() && font("link").underline());
    EXPECT_EQ(font("a*b*").family(), lightStyle().codeFont.family());
    EXPECT_EQ(formatOf(*document, QStringLiteral("a*b*"))->background().color(),
              lightStyle().tintedBackground);
    EXPECT_FALSE(
        formatOf(*document, QStringLiteral("plain"))->hasProperty(QTextFormat::BackgroundBrush));
}

TEST(MarkdownRenderer, BreaksEntitiesAndEscapes) {
    const auto document =
        rendered("soft\nbreak  \nhard\\\nagain\n\n&copy; &#x41; &lt;b&gt; \\*no\\*\n");
    const QString lines = document->firstBlock().text().replace(QChar::LineSeparator, u'|');
    EXPECT_EQ(lines, QStringLiteral("soft break|hard|again"));
    EXPECT_EQ(document->lastBlock().text(), QStringLiteral("© A <b> *no*"));
}

TEST(MarkdownRenderer, ListsNestAndCount) {
    const auto document = rendered("- a\n  - b\n    1. c\n    2. d\n- e\n\n1) f\n2) g\n");
    const auto list = [&](const char* text) {
        return blockOf(*document, QString::fromUtf8(text)).textList();
    };
    EXPECT_EQ(list("a"), list("e"));
    EXPECT_EQ(list("a")->format().indent(), 1);
    EXPECT_EQ(list("b")->format().indent(), 2);
    EXPECT_NE(list("a")->format().style(), list("b")->format().style());
    EXPECT_EQ(list("d")->format().indent(), 3);
    const auto marker = [&](const char* text) {
        return list(text)->itemText(blockOf(*document, QString::fromUtf8(text))).toStdString();
    };
    EXPECT_EQ(marker("d"), "2.");
    EXPECT_EQ(marker("g"), "2)");
}

TEST(MarkdownRenderer, ListsThatDoNotBeginAtOneKeepTheirNumbers) {
    const auto document = rendered("7. seven\n8. eight\n");
    EXPECT_TRUE(
        blockOf(*document, QStringLiteral("seven")).text().startsWith(QStringLiteral("7.")));
    EXPECT_TRUE(
        blockOf(*document, QStringLiteral("eight")).text().startsWith(QStringLiteral("8.")));
    EXPECT_LT(blockOf(*document, QStringLiteral("eight")).blockFormat().textIndent(), 0);
}

TEST(MarkdownRenderer, WhatIsInAnItemIsIndentedWithIt) {
    const auto document =
        rendered("1. first\n\n   more\n\n   ```\n   code\n   ```\n2. second\n\nafter\n");
    EXPECT_EQ(blockOf(*document, QStringLiteral("more")).textList(), nullptr);
    EXPECT_EQ(blockOf(*document, QStringLiteral("more")).blockFormat().indent(), 1);
    EXPECT_GT(tableAt(*document, QStringLiteral("code"))->format().leftMargin(), 0);
    const QTextBlock second = blockOf(*document, QStringLiteral("second"));
    EXPECT_EQ(second.textList(), blockOf(*document, QStringLiteral("first")).textList());
    EXPECT_EQ(second.textList()->itemText(second), QStringLiteral("2."));
    EXPECT_EQ(blockOf(*document, QStringLiteral("after")).blockFormat().indent(), 0);
}

TEST(MarkdownRenderer, TightListsAreTighterThanLooseOnes) {
    const auto document = rendered("- a\n- b\n\n***\n\n- c\n\n- d\n");
    EXPECT_LT(blockOf(*document, QStringLiteral("a")).blockFormat().bottomMargin(),
              blockOf(*document, QStringLiteral("c")).blockFormat().bottomMargin());
}

TEST(MarkdownRenderer, TaskListsHaveCheckBoxes) {
    const auto document = rendered("- [x] done\n- [ ] open\n- plain\n");
    const auto marker = [&](const char* text) {
        return blockOf(*document, QString::fromUtf8(text)).blockFormat().marker();
    };
    EXPECT_EQ(marker("done"), QTextBlockFormat::MarkerType::Checked);
    EXPECT_EQ(marker("open"), QTextBlockFormat::MarkerType::Unchecked);
    EXPECT_EQ(marker("plain"), QTextBlockFormat::MarkerType::NoMarker);
    EXPECT_EQ(blockOf(*document, QStringLiteral("done")).textList(), nullptr);
    EXPECT_NE(blockOf(*document, QStringLiteral("plain")).textList(), nullptr);
}

TEST(MarkdownRenderer, TablesHaveHeaderAlignmentAndInlineStyles) {
    const auto document =
        rendered("| L | C | R | N |\n|:--|:-:|--:|---|\n| a | *b* | c \\| d | |\n| only |\n");
    const QTextTable* const table = tableAt(*document, QStringLiteral("L"));
    ASSERT_NE(table, nullptr);
    EXPECT_EQ(table->rows(), 3);
    EXPECT_EQ(table->columns(), 4);
    EXPECT_EQ(table->format().headerRowCount(), 1);
    const auto alignment = [&](int column) {
        return table->cellAt(1, column).firstCursorPosition().blockFormat().alignment();
    };
    EXPECT_EQ(alignment(0), Qt::AlignLeft);
    EXPECT_EQ(alignment(1), Qt::AlignHCenter);
    EXPECT_EQ(alignment(2), Qt::AlignRight);
    EXPECT_EQ(alignment(3), Qt::AlignLeft);
    EXPECT_EQ(table->cellAt(1, 2).firstCursorPosition().block().text(), QStringLiteral("c | d"));
    EXPECT_TRUE(formatOf(*document, QStringLiteral("L"))->font().bold());
    EXPECT_TRUE(formatOf(*document, QStringLiteral("b"))->font().italic());
    const auto cell = [&](int row) { return table->cellAt(row, 0).format().toTableCellFormat(); };
    EXPECT_EQ(cell(0).background().color(), lightStyle().tintedBackground);
    EXPECT_EQ(cell(1).bottomBorder(), 1);
    EXPECT_EQ(cell(1).bottomBorderBrush().color(), lightStyle().rule);
}

TEST(MarkdownRenderer, CodeBlocksKeepTheirText) {
    const auto document =
        rendered("```cpp\nif (a &lt; b) {\n    *x*\n\n}\n```\n\n    indented\n      more\n");
    const QTextBlock code = blockOf(*document, QStringLiteral("if (a"));
    EXPECT_EQ(code.text().replace(QChar::LineSeparator, u'\n'),
              QStringLiteral("if (a &lt; b) {\n    *x*\n\n}"));
    EXPECT_EQ(
        blockOf(*document, QStringLiteral("indented")).text().replace(QChar::LineSeparator, u'\n'),
        QStringLiteral("indented\n  more"));
    EXPECT_EQ(formatOf(*document, QStringLiteral("if (a"))->font().family(),
              lightStyle().codeFont.family());
    EXPECT_EQ(
        tableAt(*document, QStringLiteral("if (a"))->cellAt(0, 0).format().background().color(),
        lightStyle().tintedBackground);
}

TEST(MarkdownRenderer, QuotationsNestAndHoldOtherBlocks) {
    const auto document = rendered("> outer\n>\n> > inner\n>\n> - item\n\nafter\n");
    EXPECT_EQ(tableDepth(*document, QStringLiteral("outer")), 1);
    EXPECT_EQ(tableDepth(*document, QStringLiteral("inner")), 2);
    EXPECT_EQ(tableDepth(*document, QStringLiteral("item")), 1);
    EXPECT_NE(blockOf(*document, QStringLiteral("item")).textList(), nullptr);
    EXPECT_EQ(tableDepth(*document, QStringLiteral("after")), 0);
    EXPECT_EQ(formatOf(*document, QStringLiteral("outer"))->foreground().color(),
              lightStyle().secondaryText);
    EXPECT_EQ(formatOf(*document, QStringLiteral("after"))->foreground().color(),
              lightStyle().text);
}

TEST(MarkdownRenderer, LinksOfAllKinds) {
    const auto document = rendered("[inline](a.md#b \"t\") <mailto:me@example.org> www.example.org "
                                   "https://example.org/x. [full][ref] [ref]\n\n[ref]: r.md\n");
    const auto address = [&](const char* text) {
        return formatOf(*document, QString::fromUtf8(text))->anchorHref().toStdString();
    };
    EXPECT_EQ(address("inline"), "a.md#b");
    EXPECT_EQ(address("mailto:me"), "mailto:me@example.org");
    EXPECT_EQ(address("www"), "http://www.example.org");
    EXPECT_EQ(address("https"), "https://example.org/x");
    EXPECT_EQ(address("full"), "r.md");
    EXPECT_EQ(address("ref"), "r.md");
    EXPECT_EQ(formatOf(*document, QStringLiteral("inline"))->foreground().color(),
              lightStyle().link);
}

TEST(MarkdownRenderer, RulesSpanTheText) {
    const auto document = rendered("a\n\n***\n\nb\n");
    const QTextBlock rule = blockOf(*document, QStringLiteral("a")).next();
    EXPECT_TRUE(rule.blockFormat().hasProperty(QTextFormat::BlockTrailingHorizontalRulerWidth));
    EXPECT_EQ(rule.blockFormat().background().color(), lightStyle().rule);
    EXPECT_EQ(rule.next().text(), QStringLiteral("b"));
}

TEST(MarkdownRenderer, RestylingGivesWhatRenderingInThatStyleGives) {
    const QByteArray text =
        "# H\n\n*a* **b** `c` [d](e.md) ~~f~~\n\n- g\n  1. h\n\n3. i\n\n- [x] j\n\n"
        "> k\n>\n> > l\n\n```\nm\n```\n\n| n | o |\n|---|--:|\n| p | q |\n\n***\n\n"
        "![r](missing.png)\n";
    const auto document = rendered(text);
    QTextCursor cursor(document.get());
    cursor.setPosition(5);
    cursor.setPosition(9, QTextCursor::KeepAnchor);
    const QString selected = cursor.selectedText();

    markdown::restyleMarkdown(*document, darkStyle());

    const auto fresh = markdown::renderMarkdown(text, {}, darkStyle());
    EXPECT_EQ(description(*document).join(u'\n').toStdString(),
              description(*fresh).join(u'\n').toStdString());
    EXPECT_NE(description(*document), description(*rendered(text)));
    EXPECT_EQ(cursor.selectedText(), selected);
    EXPECT_FALSE(document->isUndoAvailable());
}

} // namespace
} // namespace quorvantel
