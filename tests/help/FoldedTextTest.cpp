#include "help/FoldedText.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quorvantel::help {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

std::vector<std::string> found(const QString& text, const QString& query) {
    std::vector<std::string> parts;
    for (const TextRange& range : FoldedText(text).find(foldedWords(query))) {
        parts.push_back(text.sliced(range.start, range.length).toStdString());
    }
    return parts;
}

TEST(FoldedText, FindsWordsWhateverTheirCaseAndAccents) {
    const QString text = QStringLiteral("Café, CAFE\u0301 and cafés; naïve. Straße ﬁnds İ");
    EXPECT_THAT(found(text, QStringLiteral("cafe")), ElementsAre("Café", "CAFE\u0301", "café"));
    EXPECT_THAT(found(text, QStringLiteral("NAÏVE")), ElementsAre("naïve"));
    EXPECT_THAT(found(text, QStringLiteral("find")), ElementsAre("ﬁnd"));
    EXPECT_THAT(found(text, QStringLiteral("zebra")), IsEmpty());
}

TEST(FoldedText, PlacesAreThoseOfTheOriginal) {
    // Before the word: a character of two units, one that folds to two, and a combining accent.
    const QString text = QStringLiteral("😀 ﬁ e\u0301 Hotkey");
    EXPECT_THAT(FoldedText(text).find({QStringLiteral("hotkey")}),
                ElementsAre(TextRange{text.indexOf(u'H'), 6}));
    EXPECT_THAT(found(text, QStringLiteral("😀")), ElementsAre("😀"));
}

TEST(FoldedText, OverlappingPlacesAreJoined) {
    EXPECT_THAT(found(QStringLiteral("hotkeys hot"), QStringLiteral("hot tkey")),
                ElementsAre("hotkey", "hot"));
    EXPECT_THAT(found(QStringLiteral("aaaa"), QStringLiteral("a aa")), ElementsAre("aaaa"));
}

TEST(FoldedText, WordsOfAQuery) {
    EXPECT_EQ(foldedWords(QStringLiteral("  Öl\t öl  x\u0301\n")),
              (QStringList{QStringLiteral("ol"), QStringLiteral("x")}));
    EXPECT_EQ(foldedWords(QStringLiteral(" \u0301 ")), QStringList());
}

} // namespace
} // namespace quorvantel::help
