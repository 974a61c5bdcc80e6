#pragma once

#include "settings/DetailPane.h"
#include "theme/ThemedRoot.h"

namespace quorvantel {

/// The detail area of one section of the settings window: its title and below it its content.
class SettingsPane : public DetailPane {
    Q_OBJECT

public:
    /// Takes ownership of `content`. `theme` must outlive the pane.
    SettingsPane(const QString& title, QWidget* content, const ThemedRoot& theme,
                 QWidget* parent = nullptr);
};

} // namespace quorvantel
