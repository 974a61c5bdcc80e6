#pragma once

#include "theme/ThemedRoot.h"

#include <QPushButton>

namespace quorvantel {

/// A button that draws itself in the colours of the theme, as large as it asks for.
///
/// A click presses it, and the keys Space, Return and Enter as long as no modifier is held: with
/// one they are somebody's hotkey or shortcut.
class ThemedButton : public QPushButton {
    Q_OBJECT

public:
    /// `theme` must outlive the button.
    ThemedButton(const QString& label, const ThemedRoot& theme, QWidget* parent = nullptr);

    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    const ResolvedTheme& theme() const { return m_theme.theme(); }

    void keyPressEvent(QKeyEvent* event) override;

private:
    const ThemedRoot& m_theme;
};

} // namespace quorvantel
