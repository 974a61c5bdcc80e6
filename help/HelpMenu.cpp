#include "help/HelpMenu.h"

#include "help/HelpWindow.h"

#include <QDebug>
#include <QWindow>

#include <utility>

namespace quorvantel::help {

namespace {

void bringToFront(QWindow& window) {
    window.setWindowStates(window.windowStates() & ~Qt::WindowMinimized);
    window.raise();
    window.requestActivate();
}

HelpWindow::Content load(const QString& manifestName, const HelpBundle& bundle) {
    try {
        return loadHelpContent(manifestName, bundle);
    } catch (const HelpContentError& error) {
        qWarning().noquote() << error.description();
        return error;
    }
}

} // namespace

HelpMenu::HelpMenu(HelpBundle bundle, QString manifestName, const HelpStyle& style,
                   Activate activate, QObject* parent)
    : QObject(parent),
      m_bundle(std::move(bundle)),
      m_manifestName(std::move(manifestName)),
      m_style(style),
      m_activate(activate ? std::move(activate) : bringToFront) {}

HelpMenu::~HelpMenu() = default;

void HelpMenu::showHelp() {
    if (!m_window) {
        m_window = std::make_unique<HelpWindow>(load(m_manifestName, m_bundle), m_bundle, m_style);
    }
    m_window->show();
    m_activate(*m_window->windowHandle());
}

void HelpMenu::setStyle(const HelpStyle& style) {
    m_style = style;
    if (m_window) {
        m_window->setStyle(style);
    }
}

} // namespace quorvantel::help
