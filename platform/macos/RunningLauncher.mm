#include "platform/macos/RunningLauncher.h"

#import <AppKit/AppKit.h>
#include <unistd.h>

namespace quorvantel::platform {

namespace {

/// Nil when this process is the only one, or has no bundle to tell it by.
NSURL* _Nullable runningLauncher() {
    NSString* identifier = NSBundle.mainBundle.bundleIdentifier;
    if (identifier == nil) {
        return nil;
    }
    NSArray<NSRunningApplication*>* running =
        [NSRunningApplication runningApplicationsWithBundleIdentifier:identifier];
    for (NSRunningApplication* application in running) {
        // Of two that start at once none is ready, and neither gives way.
        if (application.processIdentifier != ::getpid() && application.finishedLaunching) {
            return application.bundleURL;
        }
    }
    return nil;
}

} // namespace

bool openRunningLauncher() {
    NSURL* location = runningLauncher();
    if (location == nil) {
        return false;
    }
    constexpr int64_t patience = 5 * static_cast<int64_t>(NSEC_PER_SEC);
    NSWorkspaceOpenConfiguration* configuration = [NSWorkspaceOpenConfiguration configuration];
    configuration.activates = NO;
    dispatch_semaphore_t answered = dispatch_semaphore_create(0);
    [NSWorkspace.sharedWorkspace
        openApplicationAtURL:location
               configuration:configuration
           completionHandler:^(NSRunningApplication* _Nullable, NSError* _Nullable) {
             dispatch_semaphore_signal(answered);
           }];
    dispatch_semaphore_wait(answered, dispatch_time(DISPATCH_TIME_NOW, patience));
    return true;
}

} // namespace quorvantel::platform
