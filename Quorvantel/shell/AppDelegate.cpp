#include "shell/AppDelegate.h"

#include "catalogue/SettingsPaneCatalogue.h"
#include "help/HelpWindow.h"
#include "platform/Directories.h"
#include "settings/ThemedFrame.h"
#include "shell/HelpStyle.h"
#include "theme/ControlPalette.h"

#include <QCoreApplication>
#include <QDebug>
#include <QDir>
#include <QGuiApplication>
#include <QStyleHints>
#include <QToolTip>

#include <limits>
#include <utility>

namespace quorvantel {

namespace {

/// Seconds between the beginnings of two scans.
constexpr double indexInterval = 3.0;

void log(const QString& message) {
    // One line, whatever a file name or a program's error text brings along.
    qWarning().noquote() << QStringLiteral("Quorvantel: ") + message.simplified();
}

} // namespace

AppDelegate::AppDelegate(platform::Platform& platform, AppSettings& settings,
                         ThemeManager& themeManager, const QString& storeDirectory, Clock now)
    : m_platform(platform),
      m_settings(settings),
      m_themeManager(themeManager),
      m_now(std::move(now)),
      m_frecency(storeDirectory),
      m_learned(storeDirectory),
      m_hotKeyService(platform.globalHotKeys()),
      m_theme(themeManager, platform.systemAppearance()),
      m_icons(platform.imageLoader()),
      m_helpMenu(help::HelpBundle(QStringLiteral(":/help")), QStringLiteral("topics"),
                 helpStyleFor(m_theme.theme()),
                 [this](QWindow& window) { m_platform.windowActivator().activate(window); }),
      m_settingsWindowController({settings, m_hotKeyService, themeManager, m_theme, m_icons,
                                  platform.keyCapture(), platform.windowActivator(),
                                  platform.windowFrame(), platform.screens(),
                                  [this] { retryHotKey(); }, [this] { showHelp(); }}),
      m_indexer(AppIndexer::standardRoots(QDir::homePath()),
                platform::launcherIdentifier.toString(), platform.bundleReader(),
                platform.installedApplications()),
      m_scan(m_indexer,
             [this](std::vector<LaunchTarget> targets) { takeApplications(std::move(targets)); }),
      m_lastIndexStart(-std::numeric_limits<double>::infinity()),
      m_lastSummon(m_lastIndexStart),
      m_lastClosing(m_lastIndexStart) {}

AppDelegate::~AppDelegate() {
    applicationWillTerminate();
}

void AppDelegate::applicationDidFinishLaunching() {
    // First, since the panel takes as long as the toolkit needs to look for fonts. What is pressed
    // meanwhile waits for the event loop, and by then everything is there.
    m_settings.onHotKeyChange = [this](const HotKeyBinding& binding) {
        registerHotKey(binding, false);
    };
    connect(&m_hotKeyService, &HotKeyService::failed, this, [](const HotKeyError& error) {
        log(QStringLiteral("hotkey registration failed: ") + error.description());
    });
    registerHotKey(m_settings.hotKeyBinding(), true);
    connect(&m_theme, &ThemedRoot::themeChanged, this, &AppDelegate::applyTheme);
    applyTheme();
    buildLauncher();
    reindexIfNeeded(true);
}

void AppDelegate::applicationWillTerminate() {
    m_settings.onHotKeyChange = nullptr;
    m_hotKeyService.unregister();
}

void AppDelegate::applyTheme() {
    m_helpMenu.setStyle(helpStyleFor(m_theme.theme()));
    // Tool tips are windows of the application rather than of what they are about.
    QToolTip::setPalette(controlPalette(m_theme.theme()));
}

void AppDelegate::buildLauncher() {
    m_engine = std::make_unique<SearchEngine>(m_frecency, &m_learned, m_now);
    m_settingsPanes =
        settingsPaneTargets(m_platform.bundleReader(), settingsExtensionsDirectory.toString(),
                            m_platform.settingsPanels());
    m_engine->setTargets(m_settingsPanes);

    auto view = std::make_unique<LauncherView>(*m_engine, m_theme, m_icons);
    LauncherView* const launcherView = view.get();
    m_panelController = std::make_unique<LauncherPanelController>(
        view.release(), m_platform.panelHost(), m_platform.screens(), m_platform.clickMonitor());
    new ThemedFrame(*launcherView->window(), m_themeManager, m_platform.windowFrame());
    // The view and the controller end before this object, whose members they are.
    launcherView->onLaunch = [this](const LaunchTarget& target) { launch(target); };
    launcherView->onDismiss = [this] { dismissPanel(); };
    launcherView->baseCharacter = [this](const QKeyEvent& event) {
        return m_platform.keyboard().baseCharacter(event);
    };
    launcherView->setOnSettings([this] { openSettings(); });
    launcherView->onHeightChange = [this](double height) {
        m_panelController->updateHeight(height);
    };
    m_panelController->onClose = [this] { m_lastClosing = m_now(); };
    m_panelController->onDismiss = [this] { m_engine->reset(); };
}

void AppDelegate::reindexIfNeeded(bool force) {
    const double now = m_now();
    const double elapsed = now - m_lastIndexStart;
    // A clock that was set back says nothing about how long ago it was.
    if (!force && elapsed >= 0 && elapsed < indexInterval) {
        return;
    }
    m_lastIndexStart = now;
    // The panel is on the screen before the disk is read.
    m_panelController->runAfterFirstFrame([this] { m_scan.start(); });
}

void AppDelegate::takeApplications(std::vector<LaunchTarget> targets) {
    targets.insert(targets.end(), m_settingsPanes.begin(), m_settingsPanes.end());
    // An application that was installed meanwhile may have brought the icon.
    m_icons.refresh();
    m_engine->setTargets(std::move(targets));
}

void AppDelegate::registerHotKey(const HotKeyBinding& binding, bool fallbackToDefault) {
    m_hotKeyService.registerHotKey(
        binding, [this] { togglePanel(); },
        fallbackToDefault ? std::optional(HotKeyBinding::defaultBinding()) : std::nullopt);
}

void AppDelegate::retryHotKey() {
    // What has worked instead is not to be lost over another failure.
    registerHotKey(m_settings.hotKeyBinding(), m_hotKeyService.state().active.has_value());
}

void AppDelegate::togglePanel() {
    requireStarted();
    if (isPanelVisible()) {
        dismissPanel();
        return;
    }
    m_panelController->show();
    // Summoned by other means, the user may have closed meanwhile what had the combination.
    m_panelController->runAfterFirstFrame(
        [this] { m_hotKeyService.askAgain([this] { togglePanel(); }); });
    reindexIfNeeded(false);
}

void AppDelegate::launch(const LaunchTarget& target) {
    requireStarted();
    // What follows waits for the disk, and meanwhile no application would get a key.
    m_panelController->releaseKeyboard();
    const double now = m_now();
    open(target);
    m_frecency.record(target.id(), now);
    const auto& results = m_engine->results();
    if (results.empty() || results.front().id() != target.id()) {
        m_learned.learn(m_engine->query(), target.id(), now);
    }
    dismissPanel();
}

void AppDelegate::open(const LaunchTarget& target) {
    if (const auto* const pane = std::get_if<LaunchTarget::SettingsPane>(&target.kind())) {
        m_platform.workspace().openSettings(pane->url);
        return;
    }
    const QUrl location = std::get<LaunchTarget::App>(target.kind()).bundleUrl;
    m_platform.workspace().openApplication(location, [location](const QString& error) {
        if (!error.isEmpty()) {
            log(QStringLiteral("failed to open %1: %2").arg(location.fileName(), error));
        }
    });
}

void AppDelegate::dismissPanel() {
    if (m_panelController) {
        m_panelController->hide();
    }
}

void AppDelegate::openSettings() {
    requireStarted();
    dismissPanel();
    m_settingsWindowController.show(m_learned);
}

void AppDelegate::showHelp() {
    const bool isFirst = m_helpMenu.window() == nullptr;
    m_helpMenu.showHelp();
    if (isFirst) {
        new ThemedFrame(*m_helpMenu.window(), m_themeManager, m_platform.windowFrame());
    }
}

void AppDelegate::answer(platform::ApplicationRequest request) {
    switch (request) {
    case platform::ApplicationRequest::Summon:
        summon();
        return;
    case platform::ApplicationRequest::OpenSettings:
        openSettings();
        return;
    case platform::ApplicationRequest::ShowHelp:
        dismissPanel();
        showHelp();
        return;
    case platform::ApplicationRequest::ToggleStartAtLogin:
        m_platform.loginItem().setEnabled(!m_platform.loginItem().isEnabled());
        return;
    case platform::ApplicationRequest::Quit:
        QCoreApplication::quit();
        return;
    }
}

void AppDelegate::summon() {
    const auto wasJustNow = [now = m_now()](double time) {
        const double interval = QGuiApplication::styleHints()->mouseDoubleClickInterval() / 1000.0;
        return now >= time && now - time < interval;
    };
    const bool isRepetition = wasJustNow(std::exchange(m_lastSummon, m_now()));
    // The chord that the desktop answers with a summon has closed the panel on its way there.
    const bool isDoneAlready = isPanelVisible() ? isRepetition : wasJustNow(m_lastClosing);
    if (!isDoneAlready) {
        togglePanel();
    }
}

bool AppDelegate::isPanelVisible() const {
    return m_panelController && m_panelController->isVisible();
}

SearchEngine& AppDelegate::engine() {
    requireStarted();
    return *m_engine;
}

void AppDelegate::requireStarted() const {
    if (!m_panelController) {
        qFatal("Quorvantel: summoned before the start was complete");
    }
}

} // namespace quorvantel
