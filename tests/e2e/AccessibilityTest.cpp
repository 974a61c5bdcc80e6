#include "e2e/LauncherSession.h"
#include "e2e/ScreenReader.h"
#include "support/ForeignHotKey.h"
#include "support/WaitUntil.h"

#include <X11/keysym.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quorvantel {
namespace {

using ::testing::ElementsAre;
using ::testing::SizeIs;
using namespace ::quorvantel::testing;

const QString field = QStringLiteral("text");
const QString list = QStringLiteral("list");
const QString notification = QStringLiteral("notification");

/// Of the twenty results, as many as the panel shows at once.
constexpr int visibleRows = 8;

class AccessibilityTest : public ::testing::Test {
protected:
    AccessibilityTest() {
        for (int number = 10; number < 30; ++number) {
            session.addApplication(QStringLiteral("zinc%1").arg(number),
                                   QStringLiteral("Zinc %1").arg(number));
        }
        // Found until the last letter, so that the list of twenty tells that the query is complete.
        session.addApplication(QStringLiteral("zin"), QStringLiteral("Zin"));
    }

    /// The panel with the query "zinc" and its twenty results, and a reader that has heard of it.
    void searchWithReader() {
        session.start();
        // The launcher does not wait for the accessibility services, so they may be late.
        find(QStringLiteral("application"));
        session.summon();
        search();
        EXPECT_TRUE(hears(QStringLiteral("focused: list item Zinc 10")));
        reader.forget();
    }

    void search() {
        session.search("zinc", visibleRows);
        EXPECT_TRUE(waitUntil([this] { return find(list).childCount() == 20; }));
    }

    bool hears(const QString& event) {
        return waitUntil([this, &event] { return reader.heard().contains(event); });
    }

    AccessibleObject find(const QString& role) {
        std::optional<AccessibleObject> found;
        waitUntil([&] {
            found = reader.find(QStringLiteral("Quorvantel"), role);
            return found.has_value();
        });
        return found.value();
    }

    LauncherSession session;
    ScreenReader reader{session.busAddress()};
};

TEST_F(AccessibilityTest, TheTreeHoldsTheFieldAndEveryResult) {
    searchWithReader();
    const AccessibleObject dialog = find(QStringLiteral("dialog"));
    EXPECT_EQ(dialog.name(), QStringLiteral("Quorvantel"));
    EXPECT_TRUE(dialog.has("active"));

    EXPECT_EQ(find(field).name(), QStringLiteral("Search apps and settings…"));
    EXPECT_TRUE(find(field).has("focused"));
    EXPECT_TRUE(find(field).has("editable"));

    ASSERT_EQ(find(list).childCount(), 20);
    for (int index = 0; index < 20; ++index) {
        const std::optional<AccessibleObject> row = find(list).child(index);
        ASSERT_TRUE(row);
        EXPECT_EQ(row->role(), QStringLiteral("list item"));
        EXPECT_EQ(row->name(), QStringLiteral("Zinc %1").arg(10 + index));
        EXPECT_EQ(row->description(), QStringLiteral("App"));
        EXPECT_EQ(row->indexInParent(), index);
        EXPECT_TRUE(row->has("selectable") && row->has("focusable"));
        EXPECT_EQ(row->has("selected"), index == 0);
        EXPECT_EQ(row->has("showing"), index < 9) << "the ninth shows its upper edge";
        EXPECT_EQ(row->actions(), QStringList(QStringLiteral("Press")));
    }
    EXPECT_FALSE(find(notification).has("showing"));
}

TEST_F(AccessibilityTest, AHiddenPanelShowsNothing) {
    searchWithReader();
    session.keyboard().press({XK_Escape});
    ASSERT_TRUE(session.waitForDismissal());
    const QString application = QStringLiteral("Quorvantel");
    EXPECT_TRUE(waitUntil([&] { return !reader.find(application, field); }));
    EXPECT_FALSE(reader.find(application, list));
    EXPECT_FALSE(find(QStringLiteral("dialog")).has("showing"));
    session.summon();
    EXPECT_TRUE(find(field).has("showing"));
}

TEST_F(AccessibilityTest, TheSelectionIsHeardWhileTypingStaysInTheField) {
    searchWithReader();
    session.keyboard().press({XK_Down});
    EXPECT_TRUE(hears(QStringLiteral("focused: list item Zinc 11")));
    EXPECT_THAT(reader.heard(), ElementsAre(QStringLiteral("selected: list item Zinc 11"),
                                            QStringLiteral("focused: list item Zinc 11")));
    EXPECT_TRUE(find(list).child(1)->has("selected"));
    EXPECT_FALSE(find(list).child(0)->has("selected"));

    // Tab has nowhere to go: what is typed afterwards is still the query.
    session.keyboard().press({XK_Tab});
    session.keyboard().press({XK_Shift_L, XK_Tab});
    session.search("25", 1);
    EXPECT_TRUE(hears(QStringLiteral("focused: list item Zinc 25")));
    EXPECT_EQ(find(list).childCount(), 1);
    EXPECT_EQ(find(list).child(0)->name(), QStringLiteral("Zinc 25"));
    EXPECT_TRUE(find(field).has("focused"));
}

TEST_F(AccessibilityTest, NoResultsIsHeardOnce) {
    searchWithReader();
    session.keyboard().type("qqq");
    EXPECT_TRUE(hears(QStringLiteral("showing: notification No results")));
    EXPECT_TRUE(find(notification).has("showing"));
    EXPECT_FALSE(find(list).has("showing"));
    EXPECT_EQ(find(list).childCount(), 0);
    session.keyboard().press({XK_BackSpace});
    session.keyboard().press({XK_BackSpace});
    session.keyboard().press({XK_BackSpace});
    EXPECT_TRUE(hears(QStringLiteral("focused: list item Zinc 10")));
    EXPECT_EQ(reader.heard().count(QStringLiteral("showing: notification No results")), 1);
    EXPECT_FALSE(find(notification).has("showing"));
}

TEST_F(AccessibilityTest, PressLaunchesARowOutOfSight) {
    searchWithReader();
    EXPECT_TRUE(find(list).child(19)->doAction());
    EXPECT_THAT(session.waitForRuns(QStringLiteral("zinc29"), 1), SizeIs(1));
    EXPECT_TRUE(session.waitForDismissal());
}

TEST_F(AccessibilityTest, TheSettingsAreAFrameOfNamedGroupsAndAnAlert) {
    const ForeignHotKey other(session.display(), XK_k, XCB_MOD_MASK_CONTROL);
    constexpr int keyK = 40;
    constexpr int control = 0x1000;
    session.storeHotKey(keyK, control);
    session.start();
    session.summon();
    session.keyboard().press({XK_Super_L, XK_comma});
    EXPECT_EQ(find(QStringLiteral("frame")).name(), QStringLiteral("Quorvantel Settings"));
    EXPECT_EQ(find(QStringLiteral("panel")).name(), QStringLiteral("General"));
    const AccessibleObject alert = find(QStringLiteral("alert"));
    EXPECT_TRUE(alert.name().endsWith(QStringLiteral("⌥⌘Space summons Quorvantel instead.")));
    EXPECT_TRUE(alert.has("showing"));
}

TEST_F(AccessibilityTest, AReaderThatStartsLaterIsServedToo) {
    session.start();
    session.summon();
    search();
    reader.announceItself();
    session.keyboard().press({XK_Down});
    EXPECT_TRUE(hears(QStringLiteral("focused: list item Zinc 11")));
}

} // namespace
} // namespace quorvantel
