#include "platform/linux/wayland/WaylandPanelSurface.h"

#include <QGuiApplication>
#include <QScreen>
#include <QWindow>

#include <chrono>
#include <utility>

namespace quorvantel::platform {

namespace {

using namespace std::chrono_literals;

/// Longer than a compositor takes to let the panel have the keyboard again.
constexpr auto menuClosing = 300ms;

} // namespace

WaylandPanelSurface::WaylandPanelSurface(const PanelContent& content,
                                         const WaylandConnection& connection)
    : m_content(content.window),
      m_shadow(content.cornerRadius),
      m_mouse(content.window, connection) {
    connect(qGuiApp, &QGuiApplication::focusWindowChanged, this,
            &WaylandPanelSurface::focusChanged);
    m_focusCheck.setSingleShot(true);
    connect(&m_focusCheck, &QTimer::timeout, this, &WaylandPanelSurface::checkFocus);
    connect(&m_content, &QWindow::screenChanged, this, &WaylandPanelSurface::tellScreen);
}

void WaylandPanelSurface::paintAround(QPainter& painter) {
    m_shadow.paint(painter, panelRect());
    endFirstFrame();
}

void WaylandPanelSurface::begin() {
    m_awaitsFirstFrame = m_awaitsFirstFrame || !m_isVisible;
    m_isVisible = true;
}

void WaylandPanelSurface::end() {
    m_isVisible = false;
    forgetKeyboard();
    endFirstFrame();
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
