#include "platform/Startup.h"

#include "platform/macos/MacApplication.h"
#include "platform/macos/MacPlatform.h"
#include "platform/macos/MacTerminationSignals.h"
#include "platform/macos/RunningLauncher.h"

#import <Foundation/Foundation.h>

#include <cstdlib>

namespace quorvantel::platform {

int runApplication(int argc, char** argv, const std::function<int(Platform&)>& run) {
    // For what is released before the event loop has pools of its own, and after.
    @autoreleasepool {
        if (openRunningLauncher()) {
            return EXIT_SUCCESS;
        }
        // The system would slow an application down that shows nothing (App Nap), and the hotkey
        // with it. The computer goes to sleep as ever.
        id<NSObject> attention = [NSProcessInfo.processInfo
            beginActivityWithOptions:NSActivityUserInitiatedAllowingIdleSystemSleep
                              reason:@"The hotkey is to be answered at once"];
        MacApplication application(argc, argv);
        MacPlatform platform;
        const MacTerminationSignals signals([] { QCoreApplication::quit(); });
        const int status = run(platform);
        [NSProcessInfo.processInfo endActivity:attention];
        return status;
    }
}

} // namespace quorvantel::platform
