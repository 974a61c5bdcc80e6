#include "platform/macos/MacApplication.h"

#include <QEvent>

#import <AppKit/AppKit.h>

namespace quorvantel::platform {

namespace {

/// Left to itself, the toolkit would make the process one with an icon in the Dock where it was
/// started without its bundle, and would bring it to the front. Launched programs, which are the
/// system's children, do not inherit the variable.
int& keptInBackground(int& argc) {
    qputenv("QT_MAC_DISABLE_FOREGROUND_APPLICATION_TRANSFORM", "1");
    return argc;
}

} // namespace

MacApplication::MacApplication(int& argc, char** argv)
    : QApplication(keptInBackground(argc), argv) {
    [NSApp setActivationPolicy:NSApplicationActivationPolicyAccessory];
    setApplicationName(QStringLiteral("Quorvantel"));
    setQuitOnLastWindowClosed(false);
}

bool MacApplication::event(QEvent* event) {
    if (event->type() == QEvent::Quit) {
        // The toolkit would ask every window first, and stay if one refuses to close.
        exit();
        return true;
    }
    return QApplication::event(event);
}

} // namespace quorvantel::platform
