#pragma once

#include "drawing/IconCache.h"
#include "theme/ThemedRoot.h"

#include <QToolButton>

namespace quorvantel {

/// The button of the panel that opens the settings: a bare symbol, which the mouse gives the same
/// highlights as a row of the list.
class SettingsButton : public QToolButton {
    Q_OBJECT

public:
    /// `theme` and `icons` must outlive the button.
    SettingsButton(const ThemedRoot& theme, IconCache& icons, QWidget* parent = nullptr);

    /// The side of the symbol in points.
    static constexpr int symbolSize = 18;

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    const ThemedRoot& m_theme;
    IconCache& m_icons;
};

} // namespace quorvantel
