#pragma once

#include "drawing/IconCache.h"
#include "hotkey/HotKeyService.h"
#include "platform/KeyCapture.h"
#include "platform/Screens.h"
#include "platform/WindowActivator.h"
#include "platform/WindowFrame.h"
#include "preferences/AppSettings.h"
#include "theme/ThemeManager.h"
#include "theme/ThemedRoot.h"

#include <functional>

namespace quorvantel {

/// What the settings window works on. All of it must outlive the window.
struct SettingsServices {
    AppSettings& settings;
    HotKeyService& hotKey;
    ThemeManager& themeManager;
    const ThemedRoot& theme;
    IconCache& icons;
    platform::KeyCapture& keyCapture;
    platform::WindowActivator& windowActivator;
    platform::WindowFrame& windowFrame;
    const platform::Screens& screens;
    /// Tries once more to register the hotkey in the settings, which is not at work.
    std::function<void()> retryHotKey;
    /// Brings up the help window.
    std::function<void()> showHelp;
};

} // namespace quorvantel
