#include "platform/Startup.h"

#include "platform/linux/session/DisplayBackend.h"
#include "platform/linux/session/DisplayChoice.h"
#include "platform/linux/session/DisplayLossReport.h"
#include "platform/linux/session/LinuxPlatform.h"
#include "platform/linux/session/SessionApplication.h"
#include "platform/linux/session/StandardErrorLog.h"
#include "platform/linux/session/StartContext.h"
#include "platform/linux/session/TerminalStops.h"
#include "platform/linux/session/TerminationSignals.h"

#include <QDebug>
#include <QDir>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <vector>

namespace quorvantel::platform {

namespace {

/// The best of the session's display servers that answers; null, and logged, when none does.
const DisplayBackend* chooseBackend() {
    const SessionVariables variables = SessionVariables::fromEnvironment();
    std::vector<DisplayProtocol> tried;
    for (const DisplayProtocol protocol : displayCandidates(variables)) {
        const auto backends = displayBackends();
        const auto backend = std::ranges::find(backends, protocol, &DisplayBackend::protocol);
        if (backend == backends.end()) {
            continue;
        }
        if (backend->answers()) {
            return &*backend;
        }
        tried.push_back(protocol);
    }
    qWarning().noquote() << QStringLiteral("Quorvantel: ") + displayProblem(variables, tried);
    return nullptr;
}

int runOn(DisplayServer& server, StartContext& start, const std::function<int(Platform&)>& run) {
    const DisplayLossReport lossReport([&server] { return server.isGone(); });
    LinuxPlatform platform(server, start);
    restoreBusAddress(start);
    const TerminationSignals signals([] { QCoreApplication::quit(); });
    return run(platform);
}

} // namespace

int runApplication(int argc, char** argv, const std::function<int(Platform&)>& run) {
    logToStandardError();
    outlastTerminalStops();
    StartContext start = StartContext::take();
    const DisplayBackend* const backend = chooseBackend();
    if (backend == nullptr) {
        return EXIT_FAILURE;
    }
    // As an argument, unlike as a variable, the choice is not handed on to launched programs.
    std::array<char, 10> platformOption{"-platform"};
    QByteArray toolkitPlugin(backend->toolkitPlugin);
    std::vector<char*> arguments(argv, argv + argc);
    arguments.insert(arguments.end(), {platformOption.data(), toolkitPlugin.data(), nullptr});
    int argumentCount = argc + 2;

    SessionApplication application(argumentCount, arguments.data());
    SessionApplication::setApplicationName(QStringLiteral("Quorvantel"));
    SessionApplication::setDesktopFileName(launcherIdentifier.toString());
    SessionApplication::setQuitOnLastWindowClosed(false);
    // Launched programs begin where the user's files are, wherever the launcher was started.
    QDir::setCurrent(QDir::homePath());

    return runOn(*backend->connect(), start, run);
}

} // namespace quorvantel::platform
