#include "panel/LauncherView.h"
#include "search/FrecencyStore.h"
#include "support/FakeLook.h"
#include "support/FakeScreens.h"

#include <QAccessible>
#include <QTemporaryDir>
#include <QTest>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quorvantel {
namespace {

using ::testing::ElementsAre;
using testing::FakeLook;
using testing::FakeScreens;
using ::testing::IsEmpty;

LaunchTarget app(const QString& name) {
    return {name, name, {name}, {}, LaunchTarget::App{QUrl(), name}};
}

class PanelAccessibilityTest : public ::testing::Test {
protected:
    PanelAccessibilityTest() {
        view.resize(640, 467);
        view.onLaunch = [this](const LaunchTarget& target) {
            launched << target.displayName();
            engine.reset();
        };
        view.show();
    }

    void search(const QString& query) { engine.setQuery(query); }

    void setApps(const QStringList& names) {
        std::vector<LaunchTarget> targets;
        for (const QString& name : names) {
            targets.push_back(app(name));
        }
        engine.setTargets(std::move(targets));
    }

    QAccessibleInterface& list() {
        return *QAccessible::queryAccessibleInterface(view.findChild<ResultListView*>());
    }

    QString nameOf(QAccessibleInterface* row) { return row->text(QAccessible::Name); }

    QTemporaryDir directory;
    FrecencyStore frecency{directory.path()};
    SearchEngine engine{frecency, nullptr};
    FakeScreens screens;
    FakeLook look;
    LauncherView view{engine, screens, look.theme, look.icons};
    QStringList launched;
};

TEST_F(PanelAccessibilityTest, EveryResultIsAChildWhereverItIsScrolled) {
    constexpr int count = 10'000;
    QStringList names;
    for (int number = 0; number < count; ++number) {
        names << QStringLiteral("app%1").arg(10'000 + number);
    }
    setApps(names);
    search(QStringLiteral("app"));

    ASSERT_EQ(list().childCount(), count);
    EXPECT_EQ(list().child(count), nullptr);
    QAccessibleInterface* const last = list().child(count - 1);
    EXPECT_EQ(nameOf(last), QStringLiteral("app19999"));
    EXPECT_EQ(last->text(QAccessible::Description), QStringLiteral("App"));
    EXPECT_EQ(list().indexOfChild(last), count - 1);
    EXPECT_EQ(last->parent(), &list());
    EXPECT_TRUE(last->state().offscreen);
    EXPECT_FALSE(last->state().selected);

    QAccessibleInterface* const second = list().child(1);
    EXPECT_FALSE(second->state().offscreen);
    EXPECT_EQ(list().childAt(second->rect().center().x(), second->rect().center().y()), second);
    EXPECT_TRUE(list().child(0)->state().selected);
}

TEST_F(PanelAccessibilityTest, ARowLivesAsLongAsItsTargetKeepsItsPlace) {
    setApps({QStringLiteral("ab"), QStringLiteral("abc"), QStringLiteral("axbyd")});
    search(QStringLiteral("ab"));
    ASSERT_EQ(list().childCount(), 3);
    const QAccessible::Id first = QAccessible::uniqueId(list().child(0));
    const QAccessible::Id third = QAccessible::uniqueId(list().child(2));

    search(QStringLiteral("a"));
    ASSERT_EQ(list().childCount(), 3);
    EXPECT_EQ(QAccessible::uniqueId(list().child(0)), first);
    search(QStringLiteral("abc"));
    ASSERT_EQ(list().childCount(), 1);
    EXPECT_EQ(QAccessible::accessibleInterface(third), nullptr);
    EXPECT_EQ(nameOf(list().child(0)), QStringLiteral("abc"));
    EXPECT_EQ(QAccessible::accessibleInterface(first), nullptr);
}

TEST_F(PanelAccessibilityTest, ARowHasTheNameThatTheListShows) {
    setApps({QStringLiteral("ab")});
    search(QStringLiteral("a"));
    QAccessibleInterface* const row = list().child(0);
    engine.setTargets({{QStringLiteral("ab"),
                        QStringLiteral("Abacus"),
                        {QStringLiteral("ab")},
                        {},
                        LaunchTarget::App{QUrl(), QStringLiteral("ab")}}});
    ASSERT_EQ(list().child(0), row);
    EXPECT_EQ(nameOf(row), view.findChild<ResultListView*>()->results()[0].displayName());
}

TEST_F(PanelAccessibilityTest, PressOpensTheRowUnlessAnotherTookItsPlace) {
    setApps({QStringLiteral("ab"), QStringLiteral("abc")});
    const auto press = [this](int index) {
        list().child(index)->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    };
    search(QStringLiteral("ab"));
    press(1);
    search(QStringLiteral("abc"));
    QCoreApplication::processEvents();
    EXPECT_THAT(launched, IsEmpty());

    search(QStringLiteral("ab"));
    press(1);
    QCoreApplication::processEvents();
    EXPECT_THAT(launched, ElementsAre(QStringLiteral("abc")));
    EXPECT_EQ(list().childCount(), 0) << "opening emptied the list";
}

} // namespace
} // namespace quorvantel
