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

#include <malloc.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <memory>
#include <utility>
#include <vector>

namespace quorvantel::platform {

namespace {

/// A display server that answers, by the connection that showed it.
struct Reached {
    const DisplayBackend* backend = nullptr;
    std::shared_ptr<const void> connection;
};

/// The best of the session's display servers that answers; none, and logged, when none does.
Reached reachDisplay() {
    const SessionVariables variables = SessionVariables::fromEnvironment();
    const auto backends = displayBackends();
    std::vector<DisplayProtocol> tried;
    for (const DisplayProtocol protocol : displayCandidates(variables)) {
        const auto backend = std::ranges::find(backends, protocol, &DisplayBackend::protocol);
        if (backend == backends.end()) {
            continue;
        }
        if (auto connection = backend->reach()) {
            return {&*backend, std::move(connection)};
        }
        tried.push_back(protocol);
    }
    qWarning().noquote() << QStringLiteral("Quorvantel: ") + displayProblem(variables, tried);
    return {};
}

int runOn(DisplayServer& server, StartContext& start, const std::function<int(Platform&)>& run) {
    const DisplayLossReport lossReport([&server] { return server.isGone(); });
    LinuxPlatform platform(server, start);
    const TerminationSignals signals([] { QCoreApplication::quit(); });
    return run(platform);
}

/// Has memory that was taken for once, such as for the pictures of the help, go back to the system
/// as it is freed. Left to itself, the library of C keeps the more of it the more was ever freed at
/// a time. Blocks of this size are not among those that a summons or a letter takes.
void returnFreedMemory() {
#ifdef __GLIBC__
    constexpr int largeBlock = 256 * 1024;
    constexpr int idleMemory = 1024 * 1024;
    ::mallopt(M_MMAP_THRESHOLD, largeBlock);
    ::mallopt(M_TRIM_THRESHOLD, idleMemory);
#endif
}

} // namespace

int runApplication(int argc, char** argv, const std::function<int(Platform&)>& run) {
    logToStandardError();
    outlastTerminalStops();
    returnFreedMemory();
    StartContext start = StartContext::take();
    Reached reached = reachDisplay();
    if (reached.backend == nullptr) {
        return EXIT_FAILURE;
    }
    reached.backend->prepareToolkit();
    // As an argument, unlike as a variable, the choice is not handed on to launched programs.
    std::array<char, 10> platformOption{"-platform"};
    QByteArray toolkitPlugin(reached.backend->toolkitPlugin);
    std::vector<char*> arguments(argv, argv + argc);
    arguments.insert(arguments.end(), {platformOption.data(), toolkitPlugin.data(), nullptr});
    int argumentCount = argc + 2;

    SessionApplication application(argumentCount, arguments.data());
    reached.connection.reset();
    SessionApplication::setApplicationName(QStringLiteral("Quorvantel"));
    SessionApplication::setDesktopFileName(launcherIdentifier.toString());
    SessionApplication::setQuitOnLastWindowClosed(false);
    // Launched programs begin where the user's files are, wherever the launcher was started.
    QDir::setCurrent(QDir::homePath());

    return runOn(*reached.backend->connect(), start, run);
}

} // namespace quorvantel::platform
