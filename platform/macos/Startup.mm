#include "platform/Startup.h"

#include "platform/macos/MacApplication.h"
#include "platform/macos/MacPlatform.h"
#include "platform/macos/MacTerminationSignals.h"
#include "platform/macos/RunningLauncher.h"

#include <cstdlib>

namespace quorvantel::platform {

int runApplication(int argc, char** argv, const std::function<int(Platform&)>& run) {
    // For what is released before the event loop has pools of its own, and after.
    @autoreleasepool {
        if (openRunningLauncher()) {
            return EXIT_SUCCESS;
        }
        MacApplication application(argc, argv);
        MacPlatform platform;
        const MacTerminationSignals signals([] { QCoreApplication::quit(); });
        return run(platform);
    }
}

} // namespace quorvantel::platform
