#include "e2e/LauncherSession.h"
#include "e2e/ScreenReader.h"
#include "support/WaitUntil.h"

#include <X11/keysym.h>
#include <gtest/gtest.h>

namespace quorvantel {
namespace {

using namespace ::quorvantel::testing;
using namespace Qt::StringLiterals;

/// The first object below another that is of a role and has a name, if one is given.
std::optional<AccessibleObject> findBelow(const AccessibleObject& object, const QString& role,
                                          const QString& name = {}) {
    for (int index = 0; index < object.childCount(); ++index) {
        const std::optional<AccessibleObject> child = object.child(index);
        if (child && child->role() == role && (name.isEmpty() || child->name() == name)) {
            return child;
        }
        if (const auto found = child ? findBelow(*child, role, name) : std::nullopt) {
            return found;
        }
    }
    return std::nullopt;
}

class HelpTest : public ::testing::Test {
protected:
    HelpTest() { qputenv("QT_LINUX_ACCESSIBILITY_ALWAYS_ON", "1"); }
    ~HelpTest() override { qunsetenv("QT_LINUX_ACCESSIBILITY_ALWAYS_ON"); }

    void press(const std::vector<xcb_keysym_t>& chord) { session.keyboard().press(chord); }

    bool comesToTheFront(const char* title) {
        return waitUntil([&] { return session.desktop().activeTitle() == title; });
    }

    /// An object in the help window; absent while there is none.
    std::optional<AccessibleObject> inHelp(const QString& role, const QString& name = {}) const {
        const auto launcher = reader.find(u"Quorvantel"_s, u"application"_s);
        const auto window =
            launcher ? findBelow(*launcher, u"frame"_s, u"Quorvantel Help"_s) : std::nullopt;
        return window ? findBelow(*window, role, name) : std::nullopt;
    }

    /// Clicks a button of the help window.
    void click(const QString& button) {
        session.pointer().click(inHelp(u"push button"_s, button).value().extents().center());
    }

    QStringList listedRows() const {
        QStringList rows;
        const auto list = inHelp(u"list"_s, u"Help topics"_s);
        for (int index = 0; list && index < list->childCount(); ++index) {
            const auto row = list->child(index);
            rows << (row ? row->name() : QString());
        }
        return rows;
    }

    /// Whether the view comes to show a topic, and the list to mark its row if it has one.
    bool shows(const QString& title) const {
        return waitUntil([&] {
            const auto view = inHelp(u"label"_s, title);
            const auto row = inHelp(u"list item"_s, title);
            return view && view->text().startsWith(title) && (!row || row->has("selected"));
        });
    }

    LauncherSession session;
    ScreenReader reader{session.busAddress()};
};

TEST_F(HelpTest, KeysAndClicksLeadThroughTheTopics) {
    const QString searching = u"Searching and Ranking"_s;
    const QString privacy = u"Privacy and Files"_s;
    session.start();
    session.summon();
    press({XK_Super_L, XK_comma});
    ASSERT_TRUE(comesToTheFront("Quorvantel Settings"));
    press({XK_F1});
    ASSERT_TRUE(comesToTheFront("Quorvantel Help"));
    ASSERT_TRUE(shows(u"First Steps"_s));
    const QStringList everyRow = listedRows();
    EXPECT_EQ(everyRow.size(), 11);
    EXPECT_EQ(inHelp(u"image"_s)->name(), u"The panel with what matches a few letters"_s);

    session.keyboard().type("history");
    EXPECT_TRUE(shows(searching));
    EXPECT_EQ(listedRows(), (QStringList{u"Basics"_s, searching, u"More"_s, privacy}));

    // The first link of the topic leads to the other.
    press({XK_Return});
    press({XK_Tab});
    press({XK_Return});
    EXPECT_TRUE(shows(privacy));
    press({XK_Alt_L, XK_Left});
    EXPECT_TRUE(shows(searching));
    click(u"Forward"_s);
    EXPECT_TRUE(shows(privacy));
    click(u"Back"_s);
    EXPECT_TRUE(shows(searching));

    press({XK_Control_L, XK_f});
    // With a screen reader about, Qt gives a key to whatever had the focus when it arrived.
    EXPECT_TRUE(waitUntil(
        [&] { return inHelp(u"text"_s, u"Search help topics"_s).value().has("focused"); }));
    press({XK_Escape});
    EXPECT_TRUE(waitUntil([&] { return listedRows() == everyRow; }));
    EXPECT_TRUE(shows(searching));
}

} // namespace
} // namespace quorvantel
