#include "markdown/MarkdownRenderer.h"

#include "markdown/Rendering.h"

#include <QTextCursor>
#include <QTextTable>

#include <gtest/gtest.h>

namespace quorvantel {
namespace {

using namespace testing;

TEST(MarkdownRenderer, ShowsEveryKindOfBlock) {
    const struct {
        QByteArray markdown;
        const char* outline;
    } cases[] = {
        {"# One\n## Two\n###### Six ######\nSetext\n===\n####### Seven\n",
         "#One\n##Two\n######Six\n#Setext\n####### Seven"},
        {"soft\nbreak  \nhard\\\nagain\n\n&copy; &#x41; &lt;b&gt; \\*no\\*\n",
         "soft break⏎hard⏎again\n© A <b> *no*"},
        {"a\n\n***\n\nb\n", "a\n---\nb"},
        // Lists nest and count, and what is in an item is indented with it.
        {"- a\n  - b\n    1. c\n    2. d\n- e\n\n1) f\n2) g\n",
         "• a\n  ◦ b\n    1. c\n    2. d\n• e\n1) f\n2) g"},
        {"1. first\n\n   more\n\n   ```\n   code\n   ```\n2. second\n\nafter\n",
         "1. first\n  more\n  `code\n2. second\nafter"},
        // The document's own lists begin at one, so other numbers are text.
        {"7. seven\n8. eight\n", "  7.\u00A0 seven\n  8.\u00A0 eight"},
        {"- [x] done\n- [ ] open\n- plain\n", "  ☑\u00A0 done\n  ☐\u00A0 open\n• plain"},
        {"1. a\n2. [x] b\n3. c\n\n***\n\n5. [ ] d\n6. e\n",
         "1. a\n2. ☑\u00A0 b\n3. c\n---\n  5.\u00A0 ☐\u00A0 d\n  6.\u00A0 e"},
        {"| L | C | R | N |\n|:--|:-:|--:|---|\n| a | *b* | c \\| d | |\n| only |\n",
         "|<L\n|=C\n|>R\n|<N\n|<a\n|=b\n|>c | d\n|<only"},
        {"```cpp\nif (a &lt; b) {\n    *x*\n\n}\n```\n\n    indented\n      more\n",
         "`if (a &lt; b) {⏎    *x*⏎⏎}\n`indented⏎  more"},
        {"> outer\n>\n> > inner\n>\n> - item\n\nafter\n", ">outer\n>>inner\n>• item\nafter"},
        // Raw HTML is text, as are bytes that are no UTF-8 and characters that a document uses.
        {"a <b onclick=\"x\">bold</b>\n\n<script>\nalert(1)\n</script>\n\n<!-- remark -->\n",
         "a <b onclick=\"x\">bold</b>\n<script>⏎alert(1)⏎</script>\n<!-- remark -->"},
        {"# a\xFF\xC3\n\nb \xE2\x82 c\n\n[\xC0\xAF](\xED\xA0\x80)\n",
         "#a\uFFFD\uFFFD\nb \uFFFD c\n\uFFFD"},
        {QByteArray("a\0b", 3), "a\uFFFDb"},
        {"a\uFDD0b\uFDD1c\u2029d\uFFFCe\n\n`\uFDD0`\n", "a\uFFFDb\uFFFDc⏎d\uFFFDe\n\uFFFD"},
    };
    for (const auto& [markdown, expected] : cases) {
        EXPECT_EQ(outline(*rendered(markdown)).join(u'\n').toStdString(), expected);
    }
}

TEST(MarkdownRenderer, HeadingsAreAnchorsNamedAfterTheirText) {
    const auto document =
        rendered("# Getting *Started*, twice!\n\n# Getting started twice\n\n# Ü 2\n");
    const auto anchor = [&](const char* heading) {
        const QTextBlock block = blockOf(*document, heading);
        return block.begin().fragment().charFormat().anchorNames().join(u' ').toStdString();
    };
    EXPECT_EQ(anchor("Started"), "getting-started-twice");
    EXPECT_EQ(anchor("started twice"), "getting-started-twice-1");
    EXPECT_EQ(anchor("Ü"), "ü-2");
}

TEST(MarkdownRenderer, InlineStylesCombine) {
    const auto document =
        rendered("plain *slanted **both*** **fat** ~~gone~~ `a*b*` [*link*](x.md) <b>raw</b>");
    const auto format = [&](const char* text) { return formatOf(*document, text).value(); };
    const auto font = [&](const char* text) { return format(text).font(); };
    EXPECT_FALSE(font("plain").italic() || font("plain").bold());
    EXPECT_TRUE(font("slanted").italic() && !font("slanted").bold());
    EXPECT_TRUE(font("both").italic() && font("both").bold());
    EXPECT_TRUE(font("fat").bold() && !font("fat").italic());
    EXPECT_TRUE(font("gone").strikeOut());
    EXPECT_TRUE(font("link").italic() && font("link").underline());
    EXPECT_EQ(format("link").foreground().color(), lightStyle().link);
    EXPECT_EQ(font("a*b*").family(), lightStyle().codeFont.family());
    EXPECT_EQ(format("a*b*").background().color(), lightStyle().tintedBackground);
    EXPECT_FALSE(format("plain").hasProperty(QTextFormat::BackgroundBrush));
    EXPECT_FALSE(font("raw").bold() || format("raw").isAnchor());
}

TEST(MarkdownRenderer, BlocksHaveTheirStyle) {
    const auto document =
        rendered("# H1\n## H2\n### H3\n#### H4\n##### H5\n###### H6\n\n- tight\n- last\n\n***\n\n"
                 "7. numbered\n\n- loose\n\n  ```\n  code\n  ```\n\n> quoted\n\n"
                 "| header |\n|--|\n| cell |\n");
    const auto block = [&](const char* text) { return blockOf(*document, text); };
    const auto format = [&](const char* text) { return formatOf(*document, text).value(); };
    const auto cell = [&](const char* text) {
        const QTextCursor cursor(block(text));
        return cursor.currentTable()->cellAt(cursor).format().toTableCellFormat();
    };
    for (const char* const heading : {"H1", "H2", "H3", "H4", "H5"}) {
        const QTextBlock next = block(heading).next();
        EXPECT_GT(format(heading).font().pixelSize(),
                  next.begin().fragment().charFormat().font().pixelSize())
            << heading;
    }
    EXPECT_LT(block("tight").blockFormat().bottomMargin(),
              block("loose").blockFormat().bottomMargin());
    EXPECT_LT(block("tight").blockFormat().bottomMargin(),
              block("last").blockFormat().bottomMargin());
    EXPECT_LT(block("numbered").blockFormat().textIndent(), 0);
    EXPECT_EQ(block("numbered").previous().blockFormat().background().color(), lightStyle().rule);
    EXPECT_EQ(format("code").font().family(), lightStyle().codeFont.family());
    EXPECT_EQ(cell("code").background().color(), lightStyle().tintedBackground);
    EXPECT_GT(QTextCursor(block("code")).currentTable()->format().leftMargin(), 0);
    EXPECT_EQ(format("quoted").foreground().color(), lightStyle().secondaryText);
    EXPECT_EQ(format("cell").foreground().color(), lightStyle().text);
    EXPECT_TRUE(format("header").font().bold());
    EXPECT_EQ(QTextCursor(block("header")).currentTable()->format().headerRowCount(), 1);
    EXPECT_EQ(cell("header").background().color(), lightStyle().tintedBackground);
    EXPECT_EQ(cell("cell").bottomBorder(), 1);
    EXPECT_EQ(cell("cell").bottomBorderBrush().color(), lightStyle().rule);
}

TEST(MarkdownRenderer, LinksOfAllKinds) {
    const auto document = rendered("[inline](a.md#b \"t\") <mailto:me@example.org> www.example.org "
                                   "https://example.org/x. [full][ref] [ref]\n\n[ref]: r.md\n");
    const auto address = [&](const char* text) {
        return formatOf(*document, text)->anchorHref().toStdString();
    };
    EXPECT_EQ(address("inline"), "a.md#b");
    EXPECT_EQ(address("mailto:me"), "mailto:me@example.org");
    EXPECT_EQ(address("www"), "http://www.example.org");
    EXPECT_EQ(address("https"), "https://example.org/x");
    EXPECT_EQ(address("full"), "r.md");
    EXPECT_EQ(address("ref"), "r.md");
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
