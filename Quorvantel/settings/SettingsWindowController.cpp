#include "settings/SettingsWindowController.h"

#include "settings/ThemedFrame.h"

#include <QCoreApplication>
#include <QCursor>
#include <QGuiApplication>
#include <QScreen>
#include <QShortcut>
#include <QStyle>
#include <QWindow>

#include <utility>

namespace quorvantel {

SettingsWindowController::SettingsWindowController(SettingsServices services, QObject* parent)
    : QObject(parent), m_services(std::move(services)) {}

void SettingsWindowController::show(LearnedAbbreviationStore& learned) {
    if (!m_window) {
        buildWindow(learned);
    }
    centre();
    m_window->setWindowState(m_window->windowState() & ~Qt::WindowMinimized);
    m_window->show();
    m_window->raise();
    m_services.windowActivator.activate(*m_window->windowHandle());
}

void SettingsWindowController::buildWindow(LearnedAbbreviationStore& learned) {
    m_window = std::make_unique<SettingsView>(learned, m_services);
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

void SettingsWindowController::centre() {
    const QScreen* screen = QGuiApplication::screenAt(QCursor::pos());
    if (screen == nullptr) {
        screen = QGuiApplication::primaryScreen();
    }
    if (screen == nullptr) {
        return;
    }
    const QRect available = screen->availableGeometry();
    const QSize size = m_window->frameGeometry().size().boundedTo(available.size());
    m_window->move(
        QStyle::alignedRect(Qt::LeftToRight, Qt::AlignCenter, size, available).topLeft());
}

} // namespace quorvantel
