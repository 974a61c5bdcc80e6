#include "panel/LauncherViewFixture.h"
#include "support/WithoutMotion.h"

#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QInputMethodEvent>
#include <QMenu>
#include <QPointer>
#include <QTest>
#include <QVariantAnimation>
#include <QWheelEvent>

namespace quorvantel {
namespace {

using namespace Qt::StringLiterals;

class LauncherViewTest : public testing::LauncherViewFixture {
protected:
    LauncherViewTest() {
        view.onDismiss = [this] { ++dismissals; };
        view.onHeightChange = [this](double height) { heights << height; };
        setNumberedApps(20);
    }

    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QTest::keyClick(&field, key, modifiers);
    }

    void type(const QString& text) { QTest::keyClicks(&field, text); }

    /// A mouse movement as the window system reports it, to the upper part of the given visible
    /// row.
    void moveMouseToRow(int visibleRow, QPointF location) {
        mouse = location;
        QTest::mouseMove(&list, {qRound(200 + location.y()), 6 + visibleRow * 50 + 10});
    }

    /// The names of the rows in sight, from the top, the selected one marked.
    QStringList rowsInSight() const {
        QList<ResultRowView*> rows;
        for (auto* const row : list.findChildren<ResultRowView*>()) {
            if (row->isVisibleTo(&list)) {
                rows << row;
            }
        }
        std::ranges::sort(rows, {}, [](const ResultRowView* row) { return row->y(); });
        QStringList names;
        for (const ResultRowView* const row : rows) {
            names << (row->isSelected() ? u">"_s : QString()) + row->target()->displayName();
        }
        return names;
    }

    QLineEdit& field = *view.findChild<QLineEdit*>();
    ResultListView& list = *view.findChild<ResultListView*>();
    QList<double> heights;
    int dismissals = 0;
};

TEST_F(LauncherViewTest, ReportsTheHeightWhenTheResultsChangeAndOnlyThen) {
    type(u"q"_s);
    EXPECT_EQ(heights, QList<double>());
    field.clear();
    type(u"app"_s);
    EXPECT_EQ(heights, QList<double>{467});
    type(u"10"_s);
    EXPECT_EQ(heights.last(), 117);
    type(u"q"_s);
    EXPECT_EQ(heights.last(), 109);
    press(Qt::Key_Return);
    EXPECT_EQ(launched, QStringList());
}

TEST_F(LauncherViewTest, ArrowsMoveTheSelectionAndReturnOpensIt) {
    type(u"app"_s);
    press(Qt::Key_Up);
    EXPECT_EQ(view.selectedIndex(), 0);
    press(Qt::Key_Down);
    press(Qt::Key_Down);
    press(Qt::Key_Return);
    EXPECT_EQ(launched, QStringList{u"app12"_s});
    for (int presses = 0; presses < 30; ++presses) {
        press(Qt::Key_Down);
    }
    EXPECT_EQ(view.selectedIndex(), 19);
    press(Qt::Key_Enter);
    EXPECT_EQ(launched.last(), u"app29"_s);
}

TEST_F(LauncherViewTest, TheSelectedRowStaysInSightHoweverFastTheKeyRepeatsItself) {
    setNumberedApps(80);
    type(u"app"_s);
    auto& scrolling = *list.findChild<QVariantAnimation*>();
    const auto isSelectedRowInSight = [this] {
        return list.rect().contains(list.rowRect(list.selectedIndex()));
    };
    for (const int presses : {30, 40, 60}) {
        for (const Qt::Key key : {Qt::Key_Down, Qt::Key_Up}) {
            for (int time = 0; time <= 3000; time += 1000 / presses) {
                press(key);
                EXPECT_TRUE(isSelectedRowInSight()) << presses << " a second, " << time << " ms";
                scrolling.setCurrentTime(scrolling.currentTime() + 1000 / presses);
            }
            scrolling.setCurrentTime(100);
            EXPECT_TRUE(isSelectedRowInSight());
            EXPECT_EQ(list.scrollOffset(), key == Qt::Key_Up ? 0 : 6 + 80 * 50 - 2 + 6 - 410);
        }
    }
    // In the midst of the list it comes to rest in the middle, by way of half the distance.
    for (int row = 0; row < 40; ++row) {
        press(Qt::Key_Down);
    }
    scrolling.setCurrentTime(100);
    const int centred = 6 + 40 * 50 + 24 - 205;
    EXPECT_EQ(list.scrollOffset(), centred);
    press(Qt::Key_Up);
    scrolling.setCurrentTime(10);
    EXPECT_GT(list.scrollOffset(), centred - 4);
    scrolling.setCurrentTime(50);
    EXPECT_EQ(list.scrollOffset(), centred - 25);
    scrolling.setCurrentTime(100);
    EXPECT_EQ(rowsInSight().value(4), u">app49"_s);
    EXPECT_LE(list.findChildren<ResultRowView*>().size(), 10) << "only what is in sight has a view";
    // The mouse scrolls nothing.
    moveMouseToRow(0, {300, 300});
    EXPECT_EQ(scrolling.state(), QAbstractAnimation::Stopped);

    const testing::WithoutMotion still;
    press(Qt::Key_Up);
    EXPECT_EQ(rowsInSight().value(4), u">app"_s + QString::number(10 + list.selectedIndex()));
    EXPECT_EQ(scrolling.state(), QAbstractAnimation::Stopped);
}

TEST_F(LauncherViewTest, OnlyAMovingMouseSelects) {
    type(u"app"_s);
    moveMouseToRow(3, *mouse);
    EXPECT_EQ(view.selectedIndex(), 0);
    moveMouseToRow(3, *mouse + QPointF(0, 1));
    EXPECT_EQ(view.selectedIndex(), 3);
    // The keyboard scrolls another row under the mouse, which then moves on that row.
    for (int presses = 0; presses < 5; ++presses) {
        press(Qt::Key_Down);
    }
    list.findChild<QVariantAnimation*>()->setCurrentTime(100);
    EXPECT_EQ(view.selectedIndex(), 8);
    moveMouseToRow(3, *mouse + QPointF(0, 1));
    EXPECT_EQ(view.selectedIndex(), 7);
    // Typing puts the selection back to the top; the mouse rests where it is.
    type(u"1"_s);
    EXPECT_EQ(view.selectedIndex(), 0);
    moveMouseToRow(4, *mouse);
    EXPECT_EQ(view.selectedIndex(), 0);
    // Where the system does not tell, the mouse rests where it first shows up.
    mouse.reset();
    field.backspace();
    QCoreApplication::processEvents();
    mouse = {300, 300};
    const QPointF place(200, 170);
    QEnterEvent entrance(place, place, list.mapToGlobal(place));
    QCoreApplication::sendEvent(&list, &entrance);
    EXPECT_EQ(view.selectedIndex(), 0);
    moveMouseToRow(3, {300, 301});
    EXPECT_EQ(view.selectedIndex(), 3);
}

TEST_F(LauncherViewTest, TextIsSearchedAsTheLineThatItLooksLike) {
    setApps({u"Visual Studio Code"_s});
    QInputMethodEvent commit;
    commit.setCommitString(u"visual\u3000"_s);
    QApplication::sendEvent(&field, &commit);
    QApplication::clipboard()->setText(u"studio \r\n\tcode\u2028"_s);
    field.paste();
    EXPECT_EQ(field.text(), u"visual studio code "_s);
    EXPECT_EQ(field.cursorPosition(), field.text().size());
    EXPECT_EQ(engine.results().size(), 1U);
    field.setText(u"a  b"_s);
    EXPECT_EQ(field.text(), u"a  b"_s) << "plain spaces look like what they are";
}

TEST_F(LauncherViewTest, TheWheelBringsAnotherRowUnderTheMouse) {
    type(QStringLiteral("app"));
    QCoreApplication::processEvents();
    moveMouseToRow(3, *mouse + QPointF(0, 1));
    ASSERT_EQ(view.selectedIndex(), 3);
    const auto turn = [this](int units) {
        const QPointF point(200, 6 + 3 * 50 + 24);
        QWheelEvent event(point, list.mapToGlobal(point), {}, {0, units}, Qt::NoButton,
                          Qt::NoModifier, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(&list, &event);
    };
    turn(-120);
    EXPECT_EQ(list.scrollOffset(), 100);
    EXPECT_EQ(view.selectedIndex(), 5);
    for (int step = 0; step < 120; ++step) {
        turn(1);
    }
    EXPECT_EQ(list.scrollOffset(), 0);
    EXPECT_EQ(view.selectedIndex(), 3);
}

TEST_F(LauncherViewTest, AKeystrokeThatChangesNoResultKeepsTheSelection) {
    type(u"app1"_s);
    press(Qt::Key_Down);
    ASSERT_EQ(view.selectedIndex(), 1);
    type(u" "_s);
    EXPECT_EQ(view.selectedIndex(), 1);
    engine.reset();
    EXPECT_EQ(view.selectedIndex(), 0);
    EXPECT_EQ(field.text(), QString());
}

TEST_F(LauncherViewTest, ANewScanRenamesARowWhereItIs) {
    type(u"app1"_s);
    press(Qt::Key_Down);
    std::vector<LaunchTarget> targets = engine.targets();
    const LaunchTarget old = targets[1];
    targets[1] = {old.id(), u"app11 (new)"_s, old.searchKeys(), {}, old.kind()};
    engine.setTargets(std::move(targets));
    EXPECT_EQ(rowsInSight().at(1), u">app11 (new)"_s);
}

TEST_F(LauncherViewTest, AClickOpensItsRow) {
    type(u"app"_s);
    QTest::mouseClick(&list, Qt::LeftButton, {}, {200, 6 + 2 * 50 + 24});
    EXPECT_EQ(launched, QStringList{u"app12"_s});
    QTest::mouseClick(&list, Qt::RightButton, {}, {200, 6 + 24});
    // Between two rows, and with the button let go over another row.
    QTest::mouseClick(&list, Qt::LeftButton, {}, {200, 6 + 49});
    QTest::mousePress(&list, Qt::LeftButton, {}, {200, 6 + 24});
    QTest::mouseRelease(&list, Qt::LeftButton, {}, {200, 6 + 74});
    EXPECT_EQ(launched.size(), 1);
}

TEST_F(LauncherViewTest, EscapeDismissesAndCommandCommaOpensTheSettings) {
    int settings = 0;
    press(Qt::Key_Comma, Qt::ControlModifier);
    EXPECT_EQ(field.text(), QString());
    view.setOnSettings([&settings] { ++settings; });
    press(Qt::Key_Comma, Qt::ControlModifier);
    press(Qt::Key_Comma, Qt::MetaModifier);
    EXPECT_EQ(settings, 2);
    press(Qt::Key_Question, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(settings, 2);
    view.baseCharacter = [](const QKeyEvent& event) {
        return QChar(event.key() == Qt::Key_Question ? u',' : u'a');
    };
    press(Qt::Key_Question, Qt::ControlModifier | Qt::ShiftModifier);
    press(Qt::Key_Question, Qt::MetaModifier | Qt::ShiftModifier | Qt::AltModifier);
    EXPECT_EQ(settings, 4);
    press(Qt::Key_Less, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(settings, 4);
    press(Qt::Key_Question, Qt::ShiftModifier);
    EXPECT_EQ(field.text(), u"?"_s);
    field.clear();
    press(Qt::Key_Comma);
    EXPECT_EQ(field.text(), u","_s);
    press(Qt::Key_Escape);
    EXPECT_EQ(dismissals, 1);
}

TEST_F(LauncherViewTest, ClosesTheMenuOfItsFieldWithWhatIsOpenOfItAndNoOther) {
    QMenu other;
    other.addAction(u"other"_s);
    other.popup({});
    view.closeMenu();
    EXPECT_TRUE(other.isVisible());
    other.close();

    QContextMenuEvent rightClick(QContextMenuEvent::Mouse, {}, field.mapToGlobal(QPoint()));
    QApplication::sendEvent(&field, &rightClick);
    const QPointer<QMenu> menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    ASSERT_FALSE(menu.isNull());
    QMenu* const submenu = menu->addMenu(u"more"_s);
    submenu->addAction(u"action"_s);
    menu->setActiveAction(submenu->menuAction());
    ASSERT_TRUE(QTest::qWaitFor([submenu] { return submenu->isVisible(); }));
    view.closeMenu();
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
    EXPECT_TRUE(QTest::qWaitFor([&menu] { return menu.isNull(); }));
    view.closeMenu();
}

TEST_F(LauncherViewTest, IconsAreDecodedOnceAndNotWhileTyping) {
    view.grab();
    look.loader.loads = 0;
    type(u"app"_s);
    view.grab();
    EXPECT_EQ(look.loader.loads, 0);
    const auto rows = rowsInSight().size();
    EXPECT_TRUE(QTest::qWaitFor([&] { return look.loader.loads == rows; }));
    look.icons.refresh();
    view.grab();
    QTest::qWait(20);
    EXPECT_EQ(look.loader.loads, rows);
    look.loader.hasChanged = true;
    look.icons.refresh();
    view.grab();
    EXPECT_TRUE(QTest::qWaitFor([&] { return look.loader.loads == 2 * rows; }));
}

} // namespace
} // namespace quorvantel
