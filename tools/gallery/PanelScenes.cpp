#include "tools/gallery/PanelScenes.h"

#include "catalogue/SettingsPaneCatalogue.h"
#include "panel/LauncherLayout.h"
#include "platform/linux/DesktopSettingsPanels.h"
#include "platform/linux/PropertyListBundleReader.h"
#include "tools/gallery/Backdrop.h"
#include "tools/gallery/PanelStage.h"

namespace quorvantel::gallery {

namespace {

using Targets = std::vector<LaunchTarget>;

struct App {
    QStringView name;
    QStringView icon;
};

LaunchTarget target(const App& app) {
    const QString name = app.name.toString();
    const QString identifier = QStringLiteral("org.example.") + name.toLower().remove(u' ');
    const platform::Image icon =
        app.icon.isEmpty() ? platform::Image() : platform::Image::iconTheme(app.icon.toString());
    return {identifier, name, {name}, icon, LaunchTarget::App{QUrl(identifier), identifier}};
}

Targets targets(std::initializer_list<App> apps) {
    Targets result;
    for (const App& app : apps) {
        result.push_back(target(app));
    }
    return result;
}

/// What a desktop has installed, and all settings panes.
Targets desktopTargets() {
    Targets result = targets({
        {u"Terminal", u"terminal"},
        {u"Calendar", u"calendar"},
        {u"Mail", u"mail"},
        {u"Music", u"music"},
        {u"Photos", u"photos"},
        {u"Camera", u"camera"},
        {u"Calculator", u"calculator"},
        {u"Notes", u"notes"},
        {u"Maps", u"maps"},
        {u"Code Studio", u"code"},
        {u"Files", u"files"},
        {u"Web Browser", u"browser"},
        {u"Messages", u"chat"},
        {u"Sound Recorder", u"recorder"},
        {u"Screen Capture", u""},
        {u"Podcasts", u"recorder"},
    });
    const platform::PropertyListBundleReader bundles;
    const platform::DesktopSettingsPanels noPanels({}, {});
    const Targets panes = settingsPaneTargets(bundles, {}, noPanels);
    result.insert(result.end(), panes.begin(), panes.end());
    return result;
}

Targets longNames() {
    return targets({
        {u"Comprehensive Organiser for Photographs, Scanned Letters and Other Family Pictures",
         u"photos"},
        {u"Collaborative Text Editor with Version History, Comments and Offline Copies", u"code"},
        {u"Command Line", u"terminal"},
        {u"Compact-Disc-Wiederherstellungsassistentenkonfigurationsprogramm (Vorschau)",
         u"recorder"},
    });
}

Targets arabicNames() {
    return targets({
        {u"الموسيقى", u"music"},
        {u"مدير الملفات", u"files"},
        {u"المتصفح", u"browser"},
        {u"تقويم الأعمال والمواعيد المشتركة مع جميع أفراد العائلة والأصدقاء والزملاء في العمل "
         u"والجيران في الحي القديم",
         u"calendar"},
        {u"رسائل Messages", u"chat"},
    });
}

Targets hebrewNames() {
    return targets({
        {u"מפות", u"maps"},
        {u"מחשבון", u"calculator"},
        {u"מצלמה", u"camera"},
        {u"מוזיקה!", u"music"},
        {u"מארגן מקיף לתצלומים, למכתבים סרוקים ולתמונות משפחתיות אחרות מכל השנים ומכל המקומות",
         u"photos"},
        {u"Terminal (מסוף)", u"terminal"},
    });
}

Targets chineseNames() {
    return targets({
        {u"地图", u"maps"},
        {u"图片查看器", u"photos"},
        {u"思维导图", u"notes"},
        {u"屏幕截图工具", u""},
    });
}

Targets japaneseNames() {
    return targets({
        {u"カレンダー", u"calendar"},
        {u"カメラ", u"camera"},
        {u"カラーピッカー", u"photos"},
        {u"音声レコーダー・カセット風", u"recorder"},
    });
}

QImage emptyPanel(const Look& look) {
    return PanelStage(look, desktopTargets()).onDesktop();
}

/// The favourites of someone who uses the desktop.
void haveHabits(PanelStage& stage) {
    for (const QStringView name : {u"calendar", u"calculator", u"music", u"soundrecorder"}) {
        stage.launchOften(QStringLiteral("org.example.") + name);
    }
}

QImage searched(const Look& look, Targets targets, QStringView query) {
    PanelStage stage(look, std::move(targets));
    haveHabits(stage);
    stage.search(query.toString());
    return stage.onDesktop();
}

/// A query that found something and then, typed further, nothing.
QImage withoutResults(const Look& look) {
    PanelStage stage(look, desktopTargets());
    stage.search(QStringLiteral("te"));
    stage.search(QStringLiteral("texz"));
    return stage.onDesktop();
}

QImage hovered(const Look& look) {
    PanelStage stage(look, desktopTargets());
    haveHabits(stage);
    stage.search(QStringLiteral("so"));
    stage.moveDown(1);
    stage.hover(3);
    return stage.onDesktop();
}

QImage settingsHovered(const Look& look) {
    PanelStage stage(look, desktopTargets());
    stage.hoverSettings();
    return stage.onDesktop();
}

/// For pages that bring their own ground.
QImage cutOut(QStringView query) {
    PanelStage stage({ColorScheme::Dark}, desktopTargets());
    haveHabits(stage);
    stage.search(query.toString());
    return withShadow(stage.panel(), LauncherLayout::cornerRadius, ColorScheme::Dark);
}

QString named(QStringView base, ColorScheme scheme) {
    return base +
           (scheme == ColorScheme::Light ? QStringLiteral("-light") : QStringLiteral("-dark"));
}

void appendStates(std::vector<Scene>& scenes, ColorScheme scheme) {
    const Look look{scheme};
    const auto add = [&](QStringView name, std::function<QImage()> draw,
                         Scene::Scales scales = Scene::Scales::Sharp) {
        scenes.push_back({named(name, scheme), std::move(draw), scales});
    };
    add(
        u"empty", [look] { return emptyPanel(look); }, Scene::Scales::All);
    add(u"few-results", [look] { return searched(look, desktopTargets(), u"cam"); });
    add(
        u"many-results", [look] { return searched(look, desktopTargets(), u"ca"); },
        Scene::Scales::All);
    add(u"no-results", [look] { return withoutResults(look); });
    add(u"hover", [look] { return hovered(look); });
    add(u"gear-hovered", [look] { return settingsHovered(look); });
}

void appendScripts(std::vector<Scene>& scenes) {
    const auto add = [&](QStringView name, Targets (*targets)(), QStringView query) {
        scenes.push_back({name.toString(), [targets, query] {
                              return searched({ColorScheme::Light}, targets(), query);
                          }});
    };
    add(u"long-names", longNames, u"co");
    add(u"arabic", arabicNames, u"م");
    add(u"hebrew", hebrewNames, u"מ");
    add(u"chinese", chineseNames, u"图");
    add(u"japanese", japaneseNames, u"カ");
}

void appendPresets(std::vector<Scene>& scenes) {
    constexpr std::pair<QStringView, ThemePreset> presets[] = {
        {u"preset-graphite", ThemePreset::Graphite}, {u"preset-teal", ThemePreset::Teal},
        {u"preset-ink", ThemePreset::Ink},           {u"preset-paper", ThemePreset::Paper},
        {u"preset-glass", ThemePreset::Glass},
    };
    for (const auto& [name, preset] : presets) {
        for (const ColorScheme scheme : {ColorScheme::Light, ColorScheme::Dark}) {
            const Look look{scheme, preset};
            scenes.push_back(
                {named(name, scheme), [look] { return searched(look, desktopTargets(), u"cal"); }});
        }
    }
}

} // namespace

std::vector<Scene> panelScenes() {
    std::vector<Scene> scenes;
    appendStates(scenes, ColorScheme::Light);
    appendStates(scenes, ColorScheme::Dark);
    appendScripts(scenes);
    appendPresets(scenes);
    scenes.push_back({QStringLiteral("cutout-results"), [] { return cutOut(u"ca"); }});
    scenes.push_back({QStringLiteral("cutout-empty"), [] { return cutOut({}); }});
    return scenes;
}

} // namespace quorvantel::gallery
