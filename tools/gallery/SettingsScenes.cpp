#include "tools/gallery/SettingsScenes.h"

#include "platform/linux/gui/IconThemeImageLoader.h"
#include "settings/HotKeyRecorderView.h"
#include "settings/SettingsView.h"
#include "support/FakeHotKeys.h"
#include "support/FakeScreens.h"
#include "support/MemoryDefaults.h"

#include <QCoreApplication>
#include <QTemporaryDir>

namespace quorvantel::gallery {

namespace {

class LightSystem : public platform::SystemAppearance {
public:
    bool prefersDark() const override { return false; }
    bool reducesTransparency() const override { return false; }
    bool increasesContrast() const override { return false; }
};

/// Reports the one press that a picture wants, when it is asked for.
class OnePress : public platform::KeyCapture {
public:
    std::unique_ptr<Token> capture(QWindow& /*window*/, Handler handler) override {
        press = std::move(handler);
        return std::make_unique<Token>();
    }

    Handler press;
};

class NoActivator : public platform::WindowActivator {
public:
    void activate(QWindow& /*window*/) override {}
    QMargins frameMargins(QWindow& /*window*/) override { return {}; }
};

class NoFrame : public platform::WindowFrame {
public:
    void setAppearance(QWindow& /*window*/, Appearance /*appearance*/) override {}
};

struct Settings {
    Settings(ThemeManager::Appearance appearance, ThemePreset preset) {
        manager.setAppearance(appearance);
        manager.setPreset(preset);
        view.show();
    }

    QImage picture() {
        QCoreApplication::processEvents();
        return view.grab().toImage();
    }

    HotKeyRecorderView& recorder() { return *view.findChild<HotKeyRecorderView*>(); }

    QTemporaryDir directory;
    testing::MemoryDefaults defaults;
    ThemeManager manager{defaults};
    LightSystem system;
    ThemedRoot theme{manager, system};
    platform::IconThemeImageLoader loader;
    IconCache icons{loader};
    AppSettings settings{defaults};
    testing::FakeHotKeys hotKeys;
    HotKeyService hotKey{hotKeys};
    OnePress keyboard;
    NoActivator activator;
    NoFrame frame;
    testing::FakeScreens screens;
    LearnedAbbreviationStore learned{directory.path()};
    SettingsView view{learned,
                      {settings, hotKey, manager, theme, icons, keyboard, activator, frame, screens,
                       [] {}, [] {}}};
};

QString sceneName(const QString& what, ThemeManager::Appearance appearance) {
    const bool isDark = appearance == ThemeManager::Appearance::Dark;
    return QStringLiteral("settings-") + what +
           (isDark ? QStringLiteral("-dark") : QStringLiteral("-light"));
}

Scene sectionScene(SettingsSection section, ThemeManager::Appearance appearance) {
    return {sceneName(rawValue(section), appearance), [=] {
                Settings settings(appearance, ThemePreset::Graphite);
                settings.view.select(section);
                return settings.picture();
            }};
}

Scene recordingScene(ThemeManager::Appearance appearance) {
    return {sceneName(QStringLiteral("recording"), appearance), [=] {
                Settings settings(appearance, ThemePreset::Graphite);
                settings.recorder().click();
                return settings.picture();
            }};
}

Scene refusedScene(ThemeManager::Appearance appearance) {
    return {sceneName(QStringLiteral("refused"), appearance), [=] {
                Settings settings(appearance, ThemePreset::Graphite);
                settings.recorder().click();
                settings.keyboard.press({40, platform::HotKeyModifier::option});
                return settings.picture();
            }};
}

Scene failedScene(ThemeManager::Appearance appearance) {
    return {sceneName(QStringLiteral("failed"), appearance), [=] {
                Settings settings(appearance, ThemePreset::Teal);
                settings.settings.setHotKeyBinding({40, platform::HotKeyModifier::control});
                settings.hotKeys.answer = platform::HotKeyUnavailable{
                    10, QStringLiteral("Another program has this combination.")};
                settings.hotKey.registerHotKey(settings.settings.hotKeyBinding(), [] {});
                return settings.picture();
            }};
}

Scene leftToUserScene(ThemeManager::Appearance appearance) {
    return {
        sceneName(QStringLiteral("left-to-user"), appearance), [=] {
            Settings settings(appearance, ThemePreset::Graphite);
            settings.hotKeys.answer = platform::HotKeyLeftToUser{
                QStringLiteral("Only you can bind a key in this desktop. Put this line into its "
                               "configuration:"),
                QStringLiteral("bindsym Mod1+Mod4+space exec quorvantel")};
            settings.hotKey.registerHotKey(settings.settings.hotKeyBinding(), [] {});
            return settings.picture();
        }};
}

} // namespace

std::vector<Scene> settingsScenes() {
    std::vector<Scene> scenes;
    for (const auto appearance :
         {ThemeManager::Appearance::Light, ThemeManager::Appearance::Dark}) {
        for (const SettingsSection section : allSettingsSections) {
            scenes.push_back(sectionScene(section, appearance));
        }
        scenes.push_back(recordingScene(appearance));
        scenes.push_back(refusedScene(appearance));
        scenes.push_back(failedScene(appearance));
        scenes.push_back(leftToUserScene(appearance));
    }
    return scenes;
}

} // namespace quorvantel::gallery
