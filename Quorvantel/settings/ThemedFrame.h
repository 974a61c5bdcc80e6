#pragma once

#include "platform/WindowFrame.h"
#include "theme/ThemeManager.h"

#include <QWidget>

namespace quorvantel {

/// The frame that an appearance choice asks for.
platform::WindowFrame::Appearance nsAppearanceFor(ThemeManager::Appearance appearance);

/// Keeps what the desktop draws of a window, such as its frame, in the appearance that the user
/// chose, for as long as the window lives.
class ThemedFrame : public QObject {
    Q_OBJECT

public:
    /// Belongs to `window`, which may be shown or not. The other references must outlive it.
    ThemedFrame(QWidget& window, const ThemeManager& manager, platform::WindowFrame& frame);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void apply();

    QWidget& m_window;
    const ThemeManager& m_manager;
    platform::WindowFrame& m_frame;
};

} // namespace quorvantel
