#include "panel/LauncherViewFixture.h"

#include <QAccessible>
#include <QCoreApplication>

#include <gmock/gmock.h>

namespace quorvantel {
namespace {

using namespace Qt::StringLiterals;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

class PanelAccessibilityTest : public testing::LauncherViewFixture {
protected:
    void search(const QString& query) { engine.setQuery(query); }

    QAccessibleInterface& list() {
        return *QAccessible::queryAccessibleInterface(view.findChild<ResultListView*>());
    }

    QString nameOf(QAccessibleInterface* row) { return row->text(QAccessible::Name); }
};

TEST_F(PanelAccessibilityTest, EveryResultIsAChildWhereverItIsScrolled) {
    constexpr int count = 10'000;
    setNumberedApps(count);
    search(u"app"_s);

    ASSERT_EQ(list().childCount(), count);
    EXPECT_EQ(list().child(count), nullptr);
    QAccessibleInterface* const last = list().child(count - 1);
    EXPECT_EQ(nameOf(last), u"app10009"_s);
    EXPECT_EQ(last->text(QAccessible::Description), u"App"_s);
    EXPECT_EQ(list().indexOfChild(last), count - 1);
    EXPECT_EQ(last->parent(), &list());
    EXPECT_TRUE(last->state().offscreen);
    EXPECT_FALSE(last->state().selected);

    QAccessibleInterface* const second = list().child(1);
    EXPECT_FALSE(second->state().offscreen);
    EXPECT_EQ(list().childAt(second->rect().center().x(), second->rect().center().y()), second);
    EXPECT_TRUE(list().child(0)->state().selected);
    EXPECT_TRUE(second->state().selectable && second->state().focusable);
    EXPECT_EQ(list().text(QAccessible::Name), u"Results"_s);
}

TEST_F(PanelAccessibilityTest, ARowLivesAsLongAsItsTargetKeepsItsPlace) {
    setApps({u"ab"_s, u"abc"_s, u"axbyd"_s});
    search(u"ab"_s);
    ASSERT_EQ(list().childCount(), 3);
    const QAccessible::Id first = QAccessible::uniqueId(list().child(0));
    const QAccessible::Id third = QAccessible::uniqueId(list().child(2));

    search(u"a"_s);
    ASSERT_EQ(list().childCount(), 3);
    EXPECT_EQ(QAccessible::uniqueId(list().child(0)), first);
    search(u"abc"_s);
    ASSERT_EQ(list().childCount(), 1);
    EXPECT_EQ(QAccessible::accessibleInterface(third), nullptr);
    EXPECT_EQ(nameOf(list().child(0)), u"abc"_s);
    EXPECT_EQ(QAccessible::accessibleInterface(first), nullptr);
}

TEST_F(PanelAccessibilityTest, ARowHasTheNameThatTheListShows) {
    setApps({u"ab"_s});
    search(u"a"_s);
    QAccessibleInterface* const row = list().child(0);
    engine.setTargets({{u"ab"_s, u"Abacus"_s, {u"ab"_s}, {}, LaunchTarget::App{QUrl(), u"ab"_s}}});
    ASSERT_EQ(list().child(0), row);
    EXPECT_EQ(nameOf(row), view.findChild<ResultListView*>()->results()[0].displayName());
}

TEST_F(PanelAccessibilityTest, PressOpensTheRowUnlessAnotherTookItsPlace) {
    setApps({u"ab"_s, u"abc"_s});
    view.onLaunch = [this](const LaunchTarget& target) {
        launched << target.displayName();
        engine.reset();
    };
    const auto press = [this](int index) {
        list().child(index)->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    };
    search(u"ab"_s);
    press(1);
    search(u"abc"_s);
    QCoreApplication::processEvents();
    EXPECT_THAT(launched, IsEmpty());

    search(u"ab"_s);
    press(1);
    QCoreApplication::processEvents();
    EXPECT_THAT(launched, ElementsAre(u"abc"_s));
    EXPECT_EQ(list().childCount(), 0) << "opening emptied the list";
}

} // namespace
} // namespace quorvantel
