#pragma once

#include <QString>

#include <array>

namespace quorvantel {

/// The sections of the settings window, in the order of the sidebar.
enum class SettingsSection { General, Hotkey, Advanced, Appearance };

inline constexpr std::array allSettingsSections{SettingsSection::General, SettingsSection::Hotkey,
                                                SettingsSection::Advanced,
                                                SettingsSection::Appearance};

/// The section's stable name, such as "general".
QString rawValue(SettingsSection section);

/// The section's title in the sidebar and above its pane.
QString title(SettingsSection section);

/// The name of the system symbol that the sidebar shows.
QString symbolName(SettingsSection section);

} // namespace quorvantel
