#include "settings/ThemedFrame.h"

#include <QEvent>
#include <QWindow>

namespace quorvantel {

platform::WindowFrame::Appearance nsAppearanceFor(ThemeManager::Appearance appearance) {
    using FrameAppearance = platform::WindowFrame::Appearance;
    switch (appearance) {
    case ThemeManager::Appearance::Light:
        return FrameAppearance::Light;
    case ThemeManager::Appearance::Dark:
        return FrameAppearance::Dark;
    case ThemeManager::Appearance::Auto:
        break;
    }
    return FrameAppearance::System;
}

ThemedFrame::ThemedFrame(QWidget& window, const ThemeManager& manager, platform::WindowFrame& frame)
    : QObject(&window), m_window(window), m_manager(manager), m_frame(frame) {
    connect(&manager, &ThemeManager::appearanceChanged, this, &ThemedFrame::apply);
    window.installEventFilter(this);
    apply();
}

bool ThemedFrame::eventFilter(QObject* /*watched*/, QEvent* event) {
    // The system's window comes later than the widget, before it is shown, and may come anew.
    if (event->type() == QEvent::WinIdChange) {
        apply();
    }
    return false;
}

void ThemedFrame::apply() {
    if (m_window.internalWinId() != 0) {
        m_frame.setAppearance(*m_window.windowHandle(), nsAppearanceFor(m_manager.appearance()));
    }
}

} // namespace quorvantel
