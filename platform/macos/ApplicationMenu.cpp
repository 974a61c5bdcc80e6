#include "platform/macos/ApplicationMenu.h"

#include <QAction>
#include <QGuiApplication>
#include <QMenu>

#include <utility>

namespace quorvantel::platform {

ApplicationMenu::ApplicationMenu(const LoginItem& loginItem, ApplicationRequests::Handler handler) {
    QMenu* const menu = m_bar.addMenu(QStringLiteral("Help"));
    const auto add = [&](const QString& text, QAction::MenuRole role, ApplicationRequest request) {
        QAction* const action = menu->addAction(text);
        action->setMenuRole(role);
        QObject::connect(action, &QAction::triggered, &m_bar,
                         [handler, request] { handler(request); });
        return action;
    };
    QAction* const login = add(QStringLiteral("Start at Login"), QAction::ApplicationSpecificRole,
                               ApplicationRequest::ToggleStartAtLogin);
    login->setCheckable(true);
    const auto showState = [login, &loginItem] { login->setChecked(loginItem.isEnabled()); };
    showState();
    QObject::connect(login, &QAction::triggered, &m_bar, showState);
    // The bar shows only while the launcher is active, and the user may have changed it elsewhere.
    QObject::connect(qGuiApp, &QGuiApplication::applicationStateChanged, &m_bar, showState);
    add(QStringLiteral("Quorvantel Help"), QAction::NoRole, ApplicationRequest::ShowHelp)
        ->setShortcut(QKeySequence::HelpContents);
}

} // namespace quorvantel::platform
