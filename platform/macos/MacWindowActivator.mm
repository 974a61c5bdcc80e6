#include "platform/macos/MacWindowActivator.h"

#include "platform/macos/NativeWindows.h"

namespace quorvantel::platform {

void MacWindowActivator::activate(QWindow& window) {
    NSWindow* native = nativeWindow(window);
    // A window stays on its space otherwise, and activation takes the user there.
    native.collectionBehavior |= NSWindowCollectionBehaviorMoveToActiveSpace;
    if (native.miniaturized) {
        [native deminiaturize:nil];
    }
    [NSApp activateIgnoringOtherApps:YES];
    [native makeKeyAndOrderFront:nil];
}

QMargins MacWindowActivator::frameMargins(QWindow& window) {
    window.create();
    return window.frameMargins();
}

} // namespace quorvantel::platform
