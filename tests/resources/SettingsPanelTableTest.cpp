#include "platform/linux/SettingsPanelTable.h"

#include "catalogue/SettingsPaneTable.h"
#include "support/TestFiles.h"

#include <QSet>

#include <gtest/gtest.h>

namespace quorvantel::platform {
namespace {

using namespace Qt::StringLiterals;

/// The desktop entries that are known to exist: those of Debian 12, or those of elsewhere as well.
QSet<QByteArray> recordedNames(bool withUpstream) {
    const QByteArray text = testing::readFile(QStringLiteral(PANEL_NAMES));
    const QByteArrayList names =
        text.left(withUpstream ? text.size() : text.indexOf("upstream:")).simplified().split(' ');
    return {names.begin(), names.end()};
}

class SettingsPanelTableTest : public ::testing::Test {
protected:
    /// What shows a pane on a desktop with all that Debian 12 has.
    SettingsPanel shown(const QString& pane, const QByteArray& desktops) const {
        for (const SettingsPanel& panel : table.panels(pane, desktops)) {
            if (inDebian.contains(panel.entry.toUtf8())) {
                return panel;
            }
        }
        return {};
    }

    QString keyboardPanel(const QByteArray& desktops) const {
        return shown(u"Keyboard-Settings.extension"_s, desktops).entry;
    }

    const SettingsPanelTable table = SettingsPanelTable::builtIn();
    const QSet<QByteArray> inDebian = recordedNames(false);
};

TEST_F(SettingsPanelTableTest, NamesEntriesThatExistForEveryPaneInTheCatalogue) {
    const QSet<QByteArray> known = recordedNames(true);
    QStringList panes;
    for (const SettingsPaneRow& row : settingsPaneTable()) {
        panes.append(row.url.toString().remove(u"x-apple.systempreferences:com.apple."_s));
        for (const SettingsPanel& panel : table.panels(panes.back(), {})) {
            EXPECT_TRUE(known.contains(panel.entry.toUtf8())) << panel.entry.toStdString();
        }
    }
    EXPECT_EQ(table.panes(), panes);
}

TEST_F(SettingsPanelTableTest, ShowsThePanesThatEveryDesktopHas) {
    for (const char* const desktop : {"KDE", "XFCE", "MATE", "LXQt", "X-Cinnamon", "GNOME"}) {
        for (const char* const name : {"Notifications", "Sound", "Appearance", "Displays",
                                       "Battery", "Users-Groups", "Print-Scan", "Mouse"}) {
            const QString pane = QLatin1StringView(name) + u"-Settings.extension"_s;
            EXPECT_TRUE(shown(pane, desktop).isPane) << desktop << ' ' << name;
        }
        const SettingsPanel overview = shown(u"ControlCenter-Settings.extension"_s, desktop);
        EXPECT_FALSE(overview.entry.isEmpty() || overview.isPane) << desktop;
    }
    EXPECT_TRUE(table.panels(u"Unknown.extension"_s, "KDE").empty());
}

TEST_F(SettingsPanelTableTest, ADesktopsOwnOverviewComesBeforeWhatOthersHave) {
    const std::pair<const char*, QString> overviews[] = {
        {"KDE", u"systemsettings"_s},
        {"XFCE", u"xfce-settings-manager"_s},
        {"MATE", u"matecc"_s},
        {"LXQt", u"lxqt-config"_s},
        {"Cinnamon", u"cinnamon-settings"_s},
        {"GNOME", u"org.gnome.Settings"_s},
    };
    for (const auto& [desktop, own] : overviews) {
        SCOPED_TRACE(desktop);
        QStringList order;
        for (const SettingsPanel& panel : table.panels(u"Mouse-Settings.extension"_s, desktop)) {
            order << panel.entry;
        }
        const bool isKde = own == overviews[0].second;
        EXPECT_EQ(order.indexOf(u"kcm_mouse"_s) < order.indexOf(own), isKde);
        for (const auto& [other, overview] : overviews) {
            EXPECT_GE(order.indexOf(overview), order.indexOf(own)) << other;
        }
        EXPECT_GE(order.indexOf(own), 0);
    }
}

TEST_F(SettingsPanelTableTest, BelievesTheFirstDesktopThatItKnows) {
    const QByteArray endless(100'000, ':');
    EXPECT_EQ(keyboardPanel("ubuntu:GNOME"), u"gnome-keyboard-panel"_s);
    EXPECT_EQ(keyboardPanel("Budgie:GNOME:KDE"), u"gnome-keyboard-panel"_s);
    EXPECT_EQ(keyboardPanel(endless + "X-CINNAMON"), u"cinnamon-settings-keyboard"_s);
    EXPECT_EQ(keyboardPanel("../\xff;$(reboot):xfce:MATE"), u"xfce-keyboard-settings"_s);
    for (const char* const unknown : {"", "i3", "KDE2", "*"}) {
        EXPECT_EQ(keyboardPanel(unknown), u"kcm_keyboard"_s) << unknown;
    }
}

} // namespace
} // namespace quorvantel::platform
