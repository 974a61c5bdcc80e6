#include "markdown/MarkdownRenderer.h"
#include "markdown/Rendering.h"

#include <QTextCursor>
#include <QTextTable>

#include <gtest/gtest.h>

namespace quorvantel {
namespace {

using namespace Qt::StringLiterals;
using namespace testing;

bool hasRemark(const QTextDocument& document) {
    return document.toPlainText().endsWith(u"The rest of this text is too long to show."_s);
}

QByteArray repeated(const char* part, int times) {
    return QByteArray(part).repeated(times);
}

TEST(MarkdownSafety, OnlyHarmlessAddressesStayLinks) {
    const auto isLink = [](const char* address) {
        const auto document = rendered(QByteArray("[go](") + address + ")");
        return formatOf(*document, "go")->isAnchor();
    };
    for (const char* const address :
         {"javascript:alert(1)", "JaVaScRiPt:alert(1)", "file:///etc/passwd", "data:text/html,x",
          "ftp://example.org", "x-scheme:go", "java&#115;cript:x"}) {
        EXPECT_FALSE(isLink(address)) << address;
    }
    for (const char* const address :
         {"http://example.org", "HTTPS://example.org", "mailto:a@b.c", "topic.md", "#part"}) {
        EXPECT_TRUE(isLink(address)) << address;
    }
}

TEST(MarkdownSafety, DeepNestingIsShownLessDeep) {
    QByteArray lists;
    for (int i = 0; i < 1000; ++i) {
        lists += repeated("  ", i) + "- x\n";
    }
    for (const QByteArray& text : QList<QByteArray>{
             repeated("> ", 1000) + "x", repeated("- ", 1000) + "x", repeated("1. ", 1000) + "x",
             lists, repeated("*a **a ", 1000) + "x" + repeated("** *", 1000),
             repeated("[", 1000) + "x", repeated("![", 1000) + "x" + repeated("](y)", 1000),
             "a " + repeated("`", 1000) + "x",
             repeated("> - ", 1000) + "x\n" + repeated("\n", 50'000)}) {
        const auto document = rendered(text);
        document->setTextWidth(400);
        EXPECT_TRUE(document->toPlainText().contains(u'x')) << text.left(20).toStdString();
        EXPECT_LT(document->idealWidth(), 2000) << text.left(20).toStdString();
    }
}

TEST(MarkdownSafety, HugeTextsAreCutOff) {
    for (const QByteArray& text : QList<QByteArray>{
             repeated("word ", 2'000'000), repeated("a", 10'000'000), repeated("é", 5'000'000),
             repeated("a\n\n", 300'000), repeated("> a\n\n", 200'000), repeated("# a\n", 200'000),
             repeated("```\n\n```\n", 200'000), repeated("- a\n", 200'000)}) {
        const auto document = rendered(text);
        document->setTextWidth(400);
        EXPECT_TRUE(hasRemark(*document)) << text.left(10).toStdString();
        EXPECT_LT(document->characterCount(), 40'000) << text.left(10).toStdString();
        EXPECT_FALSE(document->toPlainText().contains(QChar::ReplacementCharacter))
            << text.left(10).toStdString();
    }
    EXPECT_FALSE(hasRemark(*rendered(repeated("An ordinary line.\n\n", 500))));
}

TEST(MarkdownSafety, TablesThatWouldExplodeAreNoTables) {
    const QByteArray wide = repeated("|a", 4'000) + "\n" + repeated("|-", 4'000) + "\n";
    for (const QByteArray& text : QList<QByteArray>{
             wide + repeated("a\n", 8'000), "a|b\n-|-\n" + repeated("a\n", 200'000),
             "> a|b\n> -|-\n" + repeated("> a\n", 100'000), "a|b\n" + repeated("-|-\n", 100'000)}) {
        EXPECT_LT(rendered(text)->characterCount(), 40'000);
    }
    const auto ordinary = rendered("|a|b|c|\n|-|-|-|\n" + repeated("|1|2|3|\n", 300));
    const auto* const table = QTextCursor(blockOf(*ordinary, "a")).currentTable();
    ASSERT_NE(table, nullptr);
    EXPECT_EQ(table->rows(), 301);
}

TEST(MarkdownSafety, OrdinaryLongLinesAndRulesPassUnchanged) {
    const auto document = rendered(repeated("word ", 1500) + "end\n\n" + repeated("-", 300) +
                                   "\n\nTitle\n" + repeated("-", 300) + "\n");
    EXPECT_EQ(blockOf(*document, "end").text().size(), 1500 * 5 + 3);
    EXPECT_EQ(blockOf(*document, "Title").blockFormat().headingLevel(), 2);
    EXPECT_FALSE(document->toPlainText().contains(u'-'));
}

} // namespace
} // namespace quorvantel
