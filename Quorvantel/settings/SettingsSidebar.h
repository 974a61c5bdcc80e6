#pragma once

#include "drawing/IconCache.h"
#include "settings/SettingsSection.h"
#include "theme/ThemedRoot.h"

#include <QListWidget>

#include <optional>

namespace quorvantel {

/// The list of the settings window's sections. 168 to 220 points wide, ideally 184.
class SettingsSidebar : public QListWidget {
    Q_OBJECT

public:
    /// The references must outlive the sidebar.
    SettingsSidebar(const ThemedRoot& theme, IconCache& icons, QWidget* parent = nullptr);

    /// The selected section; absent when the user deselected all (Control and a click do).
    std::optional<SettingsSection> selection() const;
    void select(SettingsSection section);

    QSize sizeHint() const override;

Q_SIGNALS:
    void selectionChangedTo(std::optional<SettingsSection> section);

private:
    void applyTheme();

    const ThemedRoot& m_theme;
};

} // namespace quorvantel
