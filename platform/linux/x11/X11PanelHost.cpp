#include "platform/linux/x11/X11PanelHost.h"

#include <QWindow>

#include <chrono>

namespace quorvantel::platform {

namespace {

using namespace std::chrono_literals;

constexpr auto retryInterval = 20ms;
constexpr int retryAttempts = 15;

} // namespace

X11PanelHost::X11PanelHost(const X11Display& display) : m_display(display) {
    m_retry.setInterval(retryInterval);
    QObject::connect(&m_retry, &QTimer::timeout, &m_retry, [this] { tryGrab(); });
}

Qt::WindowFlags X11PanelHost::windowFlags() const {
    return Qt::Tool | Qt::FramelessWindowHint | Qt::BypassWindowManagerHint;
}

void X11PanelHost::takeKeyboard(QWindow& window) {
    m_window = &window;
    m_attemptsLeft = retryAttempts;
    m_retry.start();
    tryGrab();
}

void X11PanelHost::tryGrab() {
    if (m_window.isNull() || m_window->setKeyboardGrabEnabled(true)) {
        m_retry.stop();
        return;
    }
    if (--m_attemptsLeft <= 0) {
        m_retry.stop();
        takeFocus();
    }
}

void X11PanelHost::takeFocus() {
    const XcbPointer<xcb_get_input_focus_reply_t> focus(xcb_get_input_focus_reply(
        m_display.connection, xcb_get_input_focus(m_display.connection), nullptr));
    if (focus) {
        m_previousFocus = focus->focus;
    }
    xcb_set_input_focus(m_display.connection, XCB_INPUT_FOCUS_PARENT,
                        static_cast<xcb_window_t>(m_window->winId()), XCB_CURRENT_TIME);
    xcb_flush(m_display.connection);
}

void X11PanelHost::releaseKeyboard(QWindow& window) {
    m_retry.stop();
    window.setKeyboardGrabEnabled(false);
    if (m_previousFocus != XCB_WINDOW_NONE) {
        xcb_set_input_focus(m_display.connection, XCB_INPUT_FOCUS_PARENT, m_previousFocus,
                            XCB_CURRENT_TIME);
        m_previousFocus = XCB_WINDOW_NONE;
    }
    xcb_flush(m_display.connection);
}

} // namespace quorvantel::platform
