#include "platform/Platform.h"
#include "shell/LateAccessibility.h"
#include "shell/QuorvantelApp.h"
#include "shell/SessionApplication.h"
#include "shell/StandardErrorLog.h"
#include "shell/TerminalStops.h"

#include <QDir>

#include <array>
#include <cstdlib>
#include <vector>

int main(int argc, char** argv) {
    quorvantel::logToStandardError();
    quorvantel::outlastTerminalStops();
    const auto start = quorvantel::platform::takeStartContext();
    // Global hotkeys and the panel's keyboard grab need X11, also in a session that offers Wayland
    // besides. As an argument, unlike as a variable, this is not handed on to launched programs.
    std::array<char, 10> platformOption{"-platform"};
    std::array<char, 4> platformName{"xcb"};
    std::vector<char*> arguments(argv, argv + argc);
    arguments.insert(arguments.end(), {platformOption.data(), platformName.data(), nullptr});
    int argumentCount = argc + 2;

    const quorvantel::LateAccessibility accessibility;
    quorvantel::SessionApplication application(argumentCount, arguments.data());
    quorvantel::SessionApplication::setApplicationName(QStringLiteral("Quorvantel"));
    quorvantel::SessionApplication::setDesktopFileName(QStringLiteral("org.quorvantel.Quorvantel"));
    quorvantel::SessionApplication::setQuitOnLastWindowClosed(false);
    // Launched programs begin where the user's files are, wherever the launcher was started.
    QDir::setCurrent(QDir::homePath());

    const auto platform = quorvantel::platform::makePlatform(*start);
    if (!platform) {
        return EXIT_FAILURE;
    }
    return quorvantel::QuorvantelApp(*platform).run();
}
