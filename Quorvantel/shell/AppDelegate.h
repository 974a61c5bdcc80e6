#pragma once

#include "catalogue/AppIndexer.h"
#include "catalogue/YieldingScan.h"
#include "drawing/IconCache.h"
#include "help/HelpMenu.h"
#include "hotkey/HotKeyService.h"
#include "panel/LauncherPanelController.h"
#include "platform/Platform.h"
#include "preferences/AppSettings.h"
#include "search/FrecencyStore.h"
#include "search/LearnedAbbreviationStore.h"
#include "search/SearchEngine.h"
#include "settings/SettingsWindowController.h"
#include "theme/ThemeManager.h"
#include "theme/ThemedRoot.h"

#include <QObject>
#include <QString>

#include <functional>
#include <memory>
#include <vector>

namespace quorvantel {

/// Wires the launcher together and owns its long-lived objects; reacts to the summon hotkey, opens
/// what the user chose and learns from it.
///
/// Main thread only. Failures are logged, never shown.
class AppDelegate : public QObject {
    Q_OBJECT

public:
    /// The current time in seconds since 2001-01-01 00:00:00 UTC.
    using Clock = std::function<double()>;

    /// Loads the stores from `storeDirectory`, which need not exist. Nothing else happens before
    /// `applicationDidFinishLaunching`. The references must outlive the delegate.
    AppDelegate(platform::Platform& platform, AppSettings& settings, ThemeManager& themeManager,
                const QString& storeDirectory, Clock now = currentReferenceDate);
    ~AppDelegate() override;

    /// Registers the hotkey, builds the panel and starts the first scan of the applications. Shows
    /// nothing.
    void applicationDidFinishLaunching();

    /// Releases the hotkey. Harmless when called again.
    void applicationWillTerminate();

    /// Shows the panel, or hides it when it is shown. Showing it scans the applications again when
    /// the last scan began at least three seconds ago.
    void togglePanel();

    /// Opens a target, records the launch, learns from it when the target was not the first result
    /// anyway, and hides the panel. None of this waits for the target to open, and while it lasts
    /// the application in front has the keyboard already.
    void launch(const LaunchTarget& target);

    /// Hides the panel; the search starts over.
    void dismissPanel();

    /// Hides the panel and brings the settings window to the front.
    void openSettings();

    /// Does what the user asked for from outside the launcher's windows. Summoning is what the
    /// hotkey does, since the desktop may bind a key of its own to it, but requests that follow
    /// each other as the clicks of a double click do leave the panel shown.
    void answer(platform::ApplicationRequest request);

    bool isPanelVisible() const;

    /// Knows which hotkey summons the panel now.
    const HotKeyService& hotKeyService() const { return m_hotKeyService; }

    SearchEngine& engine();
    const FrecencyStore& frecency() const { return m_frecency; }
    const LearnedAbbreviationStore& learned() const { return m_learned; }

private:
    /// Stops the program when a handler runs before the start is complete, which is a fault of its
    /// own.
    void requireStarted() const;
    void applyTheme();
    void buildLauncher();
    void reindexIfNeeded(bool force);
    /// Searches these from now on, with the settings panes after them.
    void takeApplications(std::vector<LaunchTarget> targets);
    void registerHotKey(const HotKeyBinding& binding, bool fallbackToDefault);
    void retryHotKey();
    void showHelp();
    void open(const LaunchTarget& target);
    void summon();

    platform::Platform& m_platform;
    AppSettings& m_settings;
    const ThemeManager& m_themeManager;
    Clock m_now;
    FrecencyStore m_frecency;
    LearnedAbbreviationStore m_learned;
    HotKeyService m_hotKeyService;
    ThemedRoot m_theme;
    IconCache m_icons;
    help::HelpMenu m_helpMenu;
    SettingsWindowController m_settingsWindowController;
    AppIndexer m_indexer;
    YieldingScan m_scan;
    /// The same for as long as the program runs.
    std::vector<LaunchTarget> m_settingsPanes;
    std::unique_ptr<SearchEngine> m_engine;
    std::unique_ptr<LauncherPanelController> m_panelController;
    /// When the last scan began; before it, the distant past.
    double m_lastIndexStart;
    /// When the panel was last asked for from outside; before that, the distant past.
    double m_lastSummon;
    /// When the window system last closed the panel; before that, the distant past.
    double m_lastClosing;
};

} // namespace quorvantel
