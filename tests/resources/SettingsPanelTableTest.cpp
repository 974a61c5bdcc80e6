#include "platform/linux/SettingsPanelTable.h"

#include "catalogue/SettingsPaneTable.h"
#include "support/TestFiles.h"

#include <QSet>

#include <gtest/gtest.h>

namespace quorvantel::platform {
namespace {

using namespace Qt::StringLiterals;

constexpr const char* knownDesktops[]{"KDE", "XFCE", "MATE", "LXQt", "X-Cinnamon", "GNOME"};

/// The desktop entries that are known to exist, those of Debian 12 or those of elsewhere.
QSet<QString> recordedNames(bool isUpstream) {
    QSet<QString> names;
    for (const QString& line :
         QString::fromUtf8(testing::readFile(QStringLiteral(PANEL_NAMES))).split(u'\n')) {
        const QStringList words = line.split(u' ');
        if (!line.startsWith(u'#') && line.startsWith(u"upstream:"_s) == isUpstream) {
            names += QSet<QString>(words.begin(), words.end());
        }
    }
    return names;
}

class SettingsPanelTableTest : public ::testing::Test {
protected:
    /// What shows a pane on a desktop with all that Debian 12 has.
    SettingsPanel shown(const QString& pane, const QByteArray& desktops) const {
        for (const SettingsPanel& panel : table.panels(pane, desktops)) {
            if (inDebian.contains(panel.entry)) {
                return panel;
            }
        }
        return {};
    }

    QString keyboardPanel(const QByteArray& desktops) const {
        return shown(u"Keyboard-Settings.extension"_s, desktops).entry;
    }

    const SettingsPanelTable table = SettingsPanelTable::builtIn();
    const QSet<QString> inDebian = recordedNames(false);
};

TEST_F(SettingsPanelTableTest, NamesEntriesThatExistForEveryPaneInTheCatalogue) {
    QSet<QString> unknown;
    QStringList panes;
    for (const SettingsPaneRow& row : settingsPaneTable()) {
        panes.append(row.url.toString().remove(u"x-apple.systempreferences:com.apple."_s));
        for (const SettingsPanel& panel : table.panels(panes.back(), {})) {
            unknown.insert(panel.entry);
        }
    }
    EXPECT_EQ(table.panes(), panes);
    unknown -= inDebian;
    unknown -= recordedNames(true);
    EXPECT_TRUE(unknown.isEmpty()) << unknown.values().join(u' ').toStdString();
}

TEST_F(SettingsPanelTableTest, ShowsThePanesThatEveryDesktopHas) {
    for (const char* const desktop : knownDesktops) {
        for (const char* const pane :
             {"wifi-settings-extension", "BluetoothSettings", "Notifications-Settings.extension",
              "Sound-Settings.extension", "Appearance-Settings.extension",
              "Displays-Settings.extension", "Battery-Settings.extension",
              "Users-Groups-Settings.extension", "Date-Time-Settings.extension",
              "Print-Scan-Settings.extension", "Mouse-Settings.extension"}) {
            EXPECT_TRUE(shown(QLatin1StringView(pane), desktop).isPane) << desktop << ' ' << pane;
        }
        const SettingsPanel overview = shown(u"ControlCenter-Settings.extension"_s, desktop);
        EXPECT_FALSE(overview.entry.isEmpty() || overview.isPane) << desktop;
    }
    EXPECT_TRUE(table.panels(u"Unknown.extension"_s, "KDE").empty());
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
