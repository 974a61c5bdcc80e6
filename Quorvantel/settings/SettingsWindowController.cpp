#include "settings/SettingsWindowController.h"

#include "settings/ThemedFrame.h"

#include <QCoreApplication>
#include <QEvent>
#include <QShortcut>
#include <QStyle>
#include <QWindow>

#include <chrono>
#include <utility>

namespace quorvantel {

namespace {

using namespace std::chrono_literals;

/// How long after a change of size the desktop has surely told of a change of state as well.
constexpr std::chrono::milliseconds restDuration = 250ms;

} // namespace

SettingsWindowController::SettingsWindowController(SettingsServices services, QObject* parent)
    : QObject(parent), m_services(std::move(services)) {
    m_rest.setSingleShot(true);
    m_rest.setInterval(restDuration);
    connect(&m_rest, &QTimer::timeout, this, [this] {
        if (!enlargement()) {
            m_normalSize = m_window->size();
        }
    });
}

void SettingsWindowController::show(LearnedAbbreviationStore& learned) {
    if (!m_window) {
        buildWindow(learned);
    }
    place();
    m_window->show();
    m_services.windowActivator.activate(*m_window->windowHandle());
}

void SettingsWindowController::buildWindow(LearnedAbbreviationStore& learned) {
    m_window = std::make_unique<SettingsView>(learned, m_services);
    m_window->installEventFilter(this);
    m_window->setWindowTitle(QStringLiteral("Quorvantel Settings"));
    new ThemedFrame(*m_window, m_services.themeManager, m_services.windowFrame);
    SettingsView* const window = m_window.get();
    const auto addShortcut = [window](const QKeySequence& keys, auto action) {
        const auto* const shortcut = new QShortcut(keys, window);
        connect(shortcut, &QShortcut::activated, window, action);
    };
    addShortcut(Qt::CTRL | Qt::Key_W, [window] { window->close(); });
    addShortcut(Qt::CTRL | Qt::Key_Q, [] { QCoreApplication::quit(); });
    addShortcut(Qt::Key_F1, m_services.showHelp);
}

bool SettingsWindowController::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Resize) {
        m_rest.start();
    }
    return QObject::eventFilter(watched, event);
}

Qt::WindowStates SettingsWindowController::enlargement() const {
    return m_window->windowState() & (Qt::WindowMaximized | Qt::WindowFullScreen);
}

void SettingsWindowController::place() {
    const Qt::WindowStates enlarged = enlargement();
    if (!enlarged) {
        m_normalSize = m_window->size();
        centre();
    } else if (!m_window->isVisible()) {
        // The desktop takes the geometry that the window has when it is shown for the one to go
        // back to.
        m_window->setWindowState(Qt::WindowNoState);
        m_window->resize(m_normalSize);
        centre();
        m_window->setWindowState(enlarged);
    }
}

void SettingsWindowController::centre() {
    const auto screen = m_services.screens.target();
    if (!screen) {
        // The desktop places windows by itself.
        return;
    }
    m_window->winId(); // The desktop can only be asked about a window that exists.
    const QMargins frame = m_services.windowActivator.frameMargins(*m_window->windowHandle());
    const QRect available = m_services.screens.toWindowGeometry(screen->visibleFrame);
    const QSize size = m_window->size().grownBy(frame).boundedTo(available.size());
    const QRect place = QStyle::alignedRect(Qt::LeftToRight, Qt::AlignCenter, size, available);
    // Not by the place of its frame, which Qt does not know yet.
    m_window->setGeometry(
        QRect(place.topLeft() + QPoint(frame.left(), frame.top()), m_window->size()));
}

} // namespace quorvantel
