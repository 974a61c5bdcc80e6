#pragma once

#include "settings/ThemedRoot.h"

#include <QWidget>

namespace quorvantel {

/// The detail area of one section of the settings window: its title and below it its content, at
/// the top and the leading edge.
class SettingsPane : public QWidget {
    Q_OBJECT

public:
    static constexpr int padding = 32;
    static constexpr int spacing = 24;

    /// Takes ownership of `content`. `theme` must outlive the pane.
    SettingsPane(const QString& title, QWidget* content, const ThemedRoot& theme,
                 QWidget* parent = nullptr);
};

} // namespace quorvantel
