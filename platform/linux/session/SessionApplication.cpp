#include "platform/linux/session/SessionApplication.h"

#include <QEvent>
#include <QSessionManager>

namespace quorvantel::platform {

SessionApplication::SessionApplication(int& argc, char** argv) : QApplication(argc, argv) {
    const auto forbidRestart = [](QSessionManager& manager) {
        manager.setRestartHint(QSessionManager::RestartNever);
    };
    // The manager reads the hint when either returns.
    connect(this, &QGuiApplication::saveStateRequest, this, forbidRestart, Qt::DirectConnection);
    connect(this, &QGuiApplication::commitDataRequest, this, forbidRestart, Qt::DirectConnection);
}

bool SessionApplication::event(QEvent* event) {
    if (event->type() == QEvent::Quit) {
        // The toolkit would ask every window first, and stay if one refuses to close.
        exit();
        return true;
    }
    return QApplication::event(event);
}

} // namespace quorvantel::platform
