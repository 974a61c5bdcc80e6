#include "platform/linux/wayland/WaylandPanelSurface.h"

#include <QGuiApplication>
#include <QScreen>
#include <QWindow>
#include <qpa/qwindowsysteminterface.h>

#include <chrono>
#include <utility>

namespace quorvantel::platform {

namespace {

using namespace std::chrono_literals;

/// Longer than a compositor takes to let the panel have the keyboard again.
constexpr auto menuClosing = 300ms;

} // namespace

WaylandPanelSurface::WaylandPanelSurface(const PanelContent& content,
                                         const WaylandConnection& connection,
                                         const WaylandKeyboard& keyboard)
    : m_content(content.window),
      m_shadow(content.cornerRadius),
      m_mouse(content.window, connection) {
    connect(qGuiApp, &QGuiApplication::focusWindowChanged, this,
            &WaylandPanelSurface::focusChanged);
    m_focusCheck.setSingleShot(true);
    connect(&m_focusCheck, &QTimer::timeout, this, &WaylandPanelSurface::checkFocus);
    connect(&m_content, &QWindow::screenChanged, this, &WaylandPanelSurface::tellScreen);
    connect(&keyboard, &WaylandKeyboard::entered, this, [this, &keyboard](const QString& held) {
        if (keyboard.focus() == WaylandConnection::surfaceOf(m_content) &&
            std::exchange(m_awaitsKeyboard, false)) {
            typeHeld(held);
        }
    });
}

void WaylandPanelSurface::paintAround(QPainter& painter) {
    m_shadow.paint(painter, panelRect());
    endFirstFrame();
}

void WaylandPanelSurface::begin() {
    m_awaitsFirstFrame = m_awaitsFirstFrame || !m_isVisible;
    m_awaitsKeyboard = m_awaitsKeyboard || !m_isVisible;
    m_isVisible = true;
}

void WaylandPanelSurface::end() {
    m_isVisible = false;
    m_awaitsKeyboard = false;
    forgetKeyboard();
    endFirstFrame();
}

void WaylandPanelSurface::forgetKeyboard() {
    if (std::exchange(m_hasKeyboard, false)) {
        Q_EMIT keyboardReturning();
    }
}

void WaylandPanelSurface::loseKeyboard() {
    if (std::exchange(m_hasKeyboard, false)) {
        Q_EMIT keyboardLost();
    }
}

void WaylandPanelSurface::tellScreen() {
    if (const QScreen* const screen = m_content.screen(); screen != nullptr && m_isVisible) {
        Q_EMIT screenChosen({screen->name()});
    }
}

void WaylandPanelSurface::typeHeld(const QString& letters) {
    // Of itself a key that is down when a surface gets the keyboard types nothing there. But what
    // is typed between the hotkey and the panel's first frame is meant for the panel, and is down
    // for longer than that takes. In the window system's queue it comes before all later keys.
    for (const QChar letter : letters) {
        QWindowSystemInterface::handleKeyEvent(&m_content, QEvent::KeyPress,
                                               letter.toUpper().unicode(), Qt::NoModifier, letter);
    }
}

void WaylandPanelSurface::endFirstFrame() {
    if (std::exchange(m_awaitsFirstFrame, false)) {
        Q_EMIT firstFrameDrawn();
    }
}

void WaylandPanelSurface::focusChanged(const QWindow* focused) {
    if (focused == &m_content && m_isVisible) {
        m_hasKeyboard = true;
        // Qt says nothing of a screen that is the one of the last showing.
        tellScreen();
    }
    if (focused != nullptr) {
        m_isMenuFocused = focused->type() == Qt::Popup;
    }
    // KWin gives the keyboard to the panel's menu, and back some time after that was closed.
    m_focusCheck.start(m_isMenuFocused ? menuClosing : 0ms);
}

void WaylandPanelSurface::checkFocus() {
    const QWindow* const focused = QGuiApplication::focusWindow();
    if (focused != &m_content && (focused == nullptr || !m_isMenuFocused)) {
        loseKeyboard();
    }
}

} // namespace quorvantel::platform
