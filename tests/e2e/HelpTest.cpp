#include "e2e/LauncherSession.h"
#include "e2e/ScreenReader.h"
#include "support/WaitUntil.h"

#include <X11/keysym.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quorvantel {
namespace {

using namespace ::quorvantel::testing;

const QString helpTopics = QStringLiteral("Help topics");
const QString searchField = QStringLiteral("Search help topics");
const QString firstSteps = QStringLiteral("First Steps");
const QString searching = QStringLiteral("Searching and Ranking");
const QString privacy = QStringLiteral("Privacy and Files");
const QStringList everyRow{QStringLiteral("Basics"),
                           firstSteps,
                           searching,
                           QStringLiteral("Keyboard Reference"),
                           QStringLiteral("Settings"),
                           QStringLiteral("Choosing the Hotkey"),
                           QStringLiteral("Appearance"),
                           QStringLiteral("System Settings Panes"),
                           QStringLiteral("More"),
                           privacy,
                           QStringLiteral("Troubleshooting")};

/// What marks found words in the light appearance.
constexpr QRgb highlight = qRgb(0xFF, 0xE5, 0x8A);

/// The named object among those below another, nearest to the top first on each branch.
std::optional<AccessibleObject> findNamed(const AccessibleObject& object, const QString& name) {
    for (int index = 0; index < object.childCount(); ++index) {
        const std::optional<AccessibleObject> child = object.child(index);
        if (child && child->name() == name) {
            return child;
        }
        if (const auto found = child ? findNamed(*child, name) : std::nullopt) {
            return found;
        }
    }
    return std::nullopt;
}

/// The named object that holds text.
std::optional<AccessibleObject> findText(const AccessibleObject& object, const QString& name) {
    for (int index = 0; index < object.childCount(); ++index) {
        const std::optional<AccessibleObject> child = object.child(index);
        if (child && child->name() == name && !child->text().isEmpty()) {
            return child;
        }
        if (const auto found = child ? findText(*child, name) : std::nullopt) {
            return found;
        }
    }
    return std::nullopt;
}

bool contains(const QImage& image, QRgb color) {
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (image.pixel(x, y) == color) {
                return true;
            }
        }
    }
    return false;
}

class HelpTest : public ::testing::Test {
protected:
    HelpTest() { qputenv("QT_LINUX_ACCESSIBILITY_ALWAYS_ON", "1"); }
    ~HelpTest() override { qunsetenv("QT_LINUX_ACCESSIBILITY_ALWAYS_ON"); }

    void press(const std::vector<xcb_keysym_t>& chord) { session.keyboard().press(chord); }

    void waitForActive(const QByteArray& title) {
        ASSERT_TRUE(waitUntil([&] { return session.desktop().activeTitle() == title; }))
            << "in front is \"" << session.desktop().activeTitle().constData()
            << "\"; the launcher " << (session.isRunning() ? "runs" : "has ended");
    }

    void openHelp() {
        session.start();
        session.summon();
        press({XK_Super_L, XK_comma});
        ASSERT_NO_FATAL_FAILURE(waitForActive("Quorvantel Settings"));
        press({XK_F1});
        ASSERT_NO_FATAL_FAILURE(waitForActive("Quorvantel Help"));
        ASSERT_TRUE(shows(firstSteps, QStringLiteral("First Steps")));
    }

    std::optional<AccessibleObject> helpWindow() const {
        const auto launcher =
            reader.find(QStringLiteral("Quorvantel"), QStringLiteral("application"));
        // A button in the settings has the same name, so only windows are looked at.
        for (int index = 0; launcher && index < launcher->childCount(); ++index) {
            const auto window = launcher->child(index);
            if (window && window->name() == QStringLiteral("Quorvantel Help")) {
                return window;
            }
        }
        return std::nullopt;
    }

    /// An object in the help window; absent while there is none with this name.
    std::optional<AccessibleObject> inHelp(const QString& name) const {
        const auto window = helpWindow();
        return window ? findNamed(*window, name) : std::nullopt;
    }

    bool isSearchFocused() const {
        const auto field = inHelp(searchField);
        return field && field->has("focused");
    }

    QStringList listedRows() const {
        QStringList rows;
        const auto list = inHelp(helpTopics);
        for (int index = 0; list && index < list->childCount(); ++index) {
            const auto row = list->child(index);
            rows << (row ? row->name() : QString());
        }
        return rows;
    }

    bool lists(const QStringList& rows) const {
        return waitUntil([&] { return listedRows() == rows; });
    }

    /// The view with the topic of this title, whose text a row of the list does not have.
    std::optional<AccessibleObject> viewOf(const QString& title) const {
        const auto window = helpWindow();
        return window ? findText(*window, title) : std::nullopt;
    }

    /// Whether the view comes to show the topic of this title with these words in its text.
    bool shows(const QString& title, const QString& words) const {
        return waitUntil([&] {
            const auto view = viewOf(title);
            return view && view->text().startsWith(title) && view->text().contains(words);
        });
    }

    LauncherSession session;
    ScreenReader reader{session.busAddress()};
};

TEST_F(HelpTest, ASearchedWordNarrowsTheListAndIsMarkedInItsTopic) {
    ASSERT_NO_FATAL_FAILURE(openHelp());
    EXPECT_TRUE(lists(everyRow)) << listedRows().join(QStringLiteral(", ")).toStdString();
    const QRect window = *session.desktop().geometry(session.desktop().activeWindow());
    const auto isMarked = [&] { return contains(session.desktop().screenshot(window), highlight); };
    EXPECT_FALSE(isMarked());

    session.pointer().click(viewOf(firstSteps).value().extents().center());
    EXPECT_TRUE(waitUntil([&] { return !isSearchFocused(); }));
    press({XK_Control_L, XK_f});
    // With a screen reader about, Qt gives a key to whatever had the focus when it arrived.
    EXPECT_TRUE(waitUntil([&] { return isSearchFocused(); }));
    session.keyboard().type("history");
    EXPECT_TRUE(lists({QStringLiteral("Basics"), searching, QStringLiteral("More"), privacy}))
        << listedRows().join(QStringLiteral(", ")).toStdString();
    EXPECT_TRUE(shows(searching, QStringLiteral("history")));
    const QRect detail = viewOf(searching).value().extents();
    EXPECT_TRUE(
        waitUntil([&] { return contains(session.desktop().screenshot(detail), highlight); }));

    press({XK_Escape});
    EXPECT_TRUE(lists(everyRow));
    EXPECT_TRUE(shows(searching, QStringLiteral("history")));
    EXPECT_TRUE(waitUntil([&] { return !isMarked(); }));
}

TEST_F(HelpTest, ALinkLeadsToItsTopicAndBackReturns) {
    ASSERT_NO_FATAL_FAILURE(openHelp());
    session.keyboard().type("history");
    ASSERT_TRUE(shows(searching, QStringLiteral("history")));

    press({XK_Return});
    press({XK_Tab});
    press({XK_Return});
    EXPECT_TRUE(shows(privacy, QStringLiteral("defaults.plist")));
    EXPECT_TRUE(waitUntil([this] {
        const auto row = inHelp(helpTopics).value().child(3);
        return row && row->name() == privacy && row->has("selected");
    }));

    press({XK_Alt_L, XK_Left});
    EXPECT_TRUE(shows(searching, QStringLiteral("history")));
    session.pointer().click(inHelp(QStringLiteral("Forward")).value().extents().center());
    EXPECT_TRUE(shows(privacy, QStringLiteral("defaults.plist")));
    session.pointer().click(inHelp(QStringLiteral("Back")).value().extents().center());
    EXPECT_TRUE(shows(searching, QStringLiteral("history")));
}

} // namespace
} // namespace quorvantel
