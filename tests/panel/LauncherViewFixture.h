#pragma once

#include "panel/LauncherView.h"
#include "search/FrecencyStore.h"
#include "support/FakeLook.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace quorvantel::testing {

/// An application that is found by its name alone.
inline LaunchTarget app(const QString& name) {
    return {name, name, {name}, platform::Image::iconTheme(name), LaunchTarget::App{QUrl(), name}};
}

/// The shown view of the panel, on a search engine whose applications the test names.
class LauncherViewFixture : public ::testing::Test {
protected:
    LauncherViewFixture() {
        view.resize(640, 467);
        view.onLaunch = [this](const LaunchTarget& target) { launched << target.displayName(); };
        view.mousePosition = [this] { return mouse; };
        view.show();
    }

    void setApps(const QStringList& names) {
        std::vector<LaunchTarget> targets;
        for (const QString& name : names) {
            targets.push_back(app(name));
        }
        engine.setTargets(std::move(targets));
    }

    /// "app10", "app11" and so on.
    void setNumberedApps(int count) {
        QStringList names;
        for (int number = 10; number < 10 + count; ++number) {
            names << QStringLiteral("app%1").arg(number);
        }
        setApps(names);
    }

    QTemporaryDir directory;
    FrecencyStore frecency{directory.path()};
    SearchEngine engine{frecency, nullptr};
    FakeLook look;
    LauncherView view{engine, look.theme, look.icons};
    std::optional<QPointF> mouse{{10, 10}};
    QStringList launched;
};

} // namespace quorvantel::testing
