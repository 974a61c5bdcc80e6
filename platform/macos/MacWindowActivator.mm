#include "platform/macos/MacWindowActivator.h"

#include "platform/macos/NativeWindows.h"
#include "platform/macos/NotificationObserver.h"

#include <QObject>

namespace quorvantel::platform {

namespace {

/// Whether there is a window that the user can turn to, on the screen or in the Dock.
bool hasWindow() {
    for (NSWindow* window in NSApp.windows) {
        if (window.miniaturized || (window.visible && window.canBecomeKeyWindow)) {
            return true;
        }
    }
    return false;
}

/// An application stays active when its last window goes, and gets keys that nothing reads. When it
/// hides, the system turns to the application before.
void giveFrontBack() {
    if (NSApp.active && !hasWindow()) {
        [NSApp hide:nil];
    }
}

} // namespace

struct MacWindowActivator::Native {
    /// What is queued goes with it.
    QObject context;
    /// Of any window, the panel too: opening the launcher once more makes it active.
    NotificationObserver keyLosses{
        NSNotificationCenter.defaultCenter, NSWindowDidResignKeyNotification, nil, [this] {
            // Another window may be about to take its place.
            QMetaObject::invokeMethod(&context, &giveFrontBack, Qt::QueuedConnection);
        }};
};

MacWindowActivator::MacWindowActivator() : m_native(std::make_unique<Native>()) {}

MacWindowActivator::~MacWindowActivator() = default;

void MacWindowActivator::activate(QWindow& window) {
    NSWindow* native = nativeWindow(window);
    // A window stays on its space otherwise, and activation takes the user there.
    native.collectionBehavior |= NSWindowCollectionBehaviorMoveToActiveSpace;
    if (native.miniaturized) {
        [native deminiaturize:nil];
    }
    [NSApp unhideWithoutActivation];
    [NSApp activateIgnoringOtherApps:YES];
    [native makeKeyAndOrderFront:nil];
}

QMargins MacWindowActivator::frameMargins(QWindow& window) {
    window.create();
    return window.frameMargins();
}

} // namespace quorvantel::platform
