#pragma once

#include "catalogue/LaunchTarget.h"
#include "panel/LauncherView.h"
#include "platform/SystemAppearance.h"
#include "search/FrecencyStore.h"
#include "search/SearchEngine.h"
#include "support/MemoryDefaults.h"
#include "theme/ThemeManager.h"
#include "theme/ThemedRoot.h"
#include "tools/gallery/DrawnIcons.h"

#include <QTemporaryDir>

#include <vector>

namespace quorvantel::gallery {

/// A palette to draw with.
struct Look {
    ColorScheme scheme;
    ThemePreset preset = ThemePreset::Graphite;
};

/// A desktop that wants nothing in particular.
class PlainAppearance : public platform::SystemAppearance {
public:
    bool prefersDark() const override { return false; }
    bool reducesTransparency() const override { return false; }
    bool increasesContrast() const override { return false; }
};

/// The launcher's panel over a real search engine, in a given look.
class PanelStage {
public:
    PanelStage(const Look& look, std::vector<LaunchTarget> targets);

    /// Has the user have launched a target so often that it ranks higher.
    void launchOften(const QString& identifier);

    void search(const QString& query);

    /// Presses Down this many times.
    void moveDown(int rows);

    /// Has the mouse rest over a row, as when the list came up under it.
    void hover(int row);

    /// Has the mouse rest over the settings button.
    void hoverSettings();

    /// The panel by itself, once all its icons are there.
    QImage panel();

    /// The panel on a desktop that fits the look.
    QImage onDesktop();

private:
    void settle();

    Look m_look;
    QTemporaryDir m_directory;
    PlainAppearance m_appearance;
    testing::MemoryDefaults m_defaults;
    ThemeManager m_manager;
    ThemedRoot m_theme;
    FrecencyStore m_frecency;
    SearchEngine m_engine;
    DrawnIcons m_loader;
    IconCache m_icons;
    LauncherView m_view;
};

} // namespace quorvantel::gallery
