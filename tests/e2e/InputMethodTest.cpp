#include "e2e/LauncherSession.h"

#include <X11/keysym.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <ostream>

namespace quorvantel {
namespace {

using ::testing::SizeIs;
using namespace ::quorvantel::testing;
using namespace Qt::StringLiterals;

/// A text and the keys of each of its letters, as people enter letters that their keyboard has no
/// key for. AltGr is held for the rest of its letter.
struct Entry {
    std::string name;
    QStringList layout; ///< Arguments of setxkbmap.
    std::vector<std::vector<xcb_keysym_t>> letters;
    QString text;

    friend void PrintTo(const Entry& entry, std::ostream* out) { *out << entry.name; }
};

class InputMethodTest : public ::testing::TestWithParam<Entry> {
protected:
    void press(const std::vector<xcb_keysym_t>& letter) {
        for (const xcb_keysym_t key : letter) {
            if (key == XK_ISO_Level3_Shift) {
                session.keyboard().hold(key);
            } else {
                session.keyboard().press({key});
            }
        }
        if (letter.front() == XK_ISO_Level3_Shift) {
            session.keyboard().release(XK_ISO_Level3_Shift);
        }
    }

    /// Presses the keys of a letter and waits until it is seen.
    void enter(const std::vector<xcb_keysym_t>& letter) {
        const auto seen = [this] {
            const QRect panel = session.panel().value();
            return session.desktop().screenshot(
                QRect(panel.topLeft(), QSize(panel.width(), LauncherSession::emptyPanelHeight)));
        };
        const QImage before = seen();
        press(letter);
        EXPECT_TRUE(waitUntil([&] { return seen() != before; }));
        // The caret's blinking is seen as well; the list comes with the first letter only.
        EXPECT_TRUE(waitUntil(
            [this] { return session.panel()->height() > LauncherSession::emptyPanelHeight; }));
    }

    /// Shows the panel to a user of the layout; two applications match the text.
    void summon() {
        const QString& text = GetParam().text;
        session.addApplication(u"first"_s, text);
        session.addApplication(u"second"_s, text + u" second"_s);
        session.setKeyboardLayout(GetParam().layout);
        session.start();
        session.summon();
    }

    /// Launches the second of the two, which teaches the launcher the query letter by letter; the
    /// search itself makes no difference between some letters.
    void expectTheTextAsTheQuery() {
        ASSERT_TRUE(session.waitForPanelHeight(panelHeight(2)));
        session.keyboard().press({XK_Down});
        session.keyboard().press({XK_Return});
        EXPECT_THAT(session.waitForRuns(u"second"_s, 1), SizeIs(1));
        const auto learned = session.waitForDataFile(u"abbreviations.json"_s);
        ASSERT_TRUE(learned);
        EXPECT_EQ(learned->keys(), QStringList{GetParam().text});
    }

    LauncherSession session;
};

TEST_P(InputMethodTest, ComposedLettersReachTheSearchField) {
    summon();
    for (const std::vector<xcb_keysym_t>& letter : GetParam().letters) {
        enter(letter);
    }
    expectTheTextAsTheQuery();
}

TEST_P(InputMethodTest, WhatIsTypedWhileTheLauncherIsBusyKeepsItsOrder) {
    summon();
    session.signal(SIGSTOP);
    for (const std::vector<xcb_keysym_t>& letter : GetParam().letters) {
        press(letter);
    }
    session.signal(SIGCONT);
    expectTheTextAsTheQuery();
}

INSTANTIATE_TEST_SUITE_P(
    With, InputMethodTest,
    ::testing::Values(
        Entry{"DeadKeys",
              {u"us"_s, u"intl"_s},
              {{XK_c}, {XK_a}, {XK_f}, {XK_dead_acute, XK_e}, {XK_dead_grave, XK_a}},
              u"caféà"_s},
        Entry{"TheComposeKey",
              {u"us"_s, u"-option"_s, u"compose:menu"_s},
              {{XK_c}, {XK_Multi_key, XK_o, XK_e}, {XK_u}, {XK_r}},
              u"cœur"_s},
        Entry{"AltGr",
              {u"us"_s, u"intl"_s},
              {{XK_f}, {XK_ISO_Level3_Shift, XK_s}, {XK_ISO_Level3_Shift, XK_l}},
              u"fßø"_s},
        Entry{"AnotherAlphabet", {u"gr"_s}, {{XK_Greek_zeta}, {XK_Greek_eta}}, u"ζη"_s}),
    [](const auto& entry) { return entry.param.name; });

} // namespace
} // namespace quorvantel
