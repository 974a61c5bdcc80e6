#pragma once

#include "search/LearnedAbbreviationStore.h"
#include "settings/SettingsServices.h"
#include "settings/SettingsSidebar.h"

#include <QStackedWidget>
#include <QWidget>

namespace quorvantel {

/// The whole content of the settings window: the sidebar and the pane of the selected section.
/// Starts with the Hotkey section.
class SettingsView : public QWidget {
    Q_OBJECT

public:
    /// `learned` must outlive the view.
    SettingsView(LearnedAbbreviationStore& learned, const SettingsServices& services,
                 QWidget* parent = nullptr);

    SettingsSection shownSection() const;
    void select(SettingsSection section) { m_sidebar->select(section); }

private:
    QWidget* makePane(SettingsSection section, LearnedAbbreviationStore& learned,
                      const SettingsServices& services) const;
    void applyTheme();

    const ThemedRoot& m_theme;
    SettingsSidebar* m_sidebar;
    QStackedWidget* m_detail;
};

} // namespace quorvantel
