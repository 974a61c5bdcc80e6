#include "platform/macos/MacScreens.h"

#include "platform/macos/CoreFoundationPointers.h"
#include "platform/macos/NotificationObserver.h"
#include "platform/macos/ScreenPlane.h"

#import <AppKit/AppKit.h>
#include <ColorSync/ColorSync.h>

#include <utility>

namespace quorvantel::platform {

namespace {

QString nameOf(NSScreen* screen) {
    NSNumber* number = screen.deviceDescription[@"NSScreenNumber"];
    const CGDirectDisplayID display = number.unsignedIntValue;
    const CoreFoundationPointer<CFUUIDRef> identifier(CGDisplayCreateUUIDFromDisplayID(display));
    if (!identifier) {
        return QString::number(display);
    }
    const CoreFoundationPointer<CFStringRef> text(
        CFUUIDCreateString(kCFAllocatorDefault, identifier.get()));
    return QString::fromCFString(text.get());
}

Screen describe(NSScreen* screen) {
    return {{nameOf(screen)},
            QRectF::fromCGRect(screen.frame),
            QRectF::fromCGRect(screen.visibleFrame)};
}

} // namespace

struct MacScreens::Native {
    NotificationObserver changes;
};

MacScreens::MacScreens()
    : m_known(all()),
      m_native(new Native{{NSNotificationCenter.defaultCenter,
                           NSApplicationDidChangeScreenParametersNotification, nil,
                           [this] { check(); }}}) {}

MacScreens::~MacScreens() = default;

std::vector<Screen> MacScreens::all() const {
    std::vector<Screen> screens;
    for (NSScreen* screen in NSScreen.screens) {
        screens.push_back(describe(screen));
    }
    return screens;
}

std::optional<Screen> MacScreens::main() const {
    NSScreen* screen = NSScreen.mainScreen;
    return screen == nil ? std::nullopt : std::optional(describe(screen));
}

std::optional<Screen> MacScreens::underMouse() const {
    return screenAt(QPointF::fromCGPoint(NSEvent.mouseLocation), all());
}

QRect MacScreens::toWindowGeometry(const QRectF& frame) const {
    const std::vector<Screen> screens = all();
    return screens.empty() ? frame.toRect()
                           : turnedOver(frame, screens.front().frame.height()).toRect();
}

void MacScreens::check() {
    std::vector<Screen> screens = all();
    if (std::exchange(m_known, screens) != screens) {
        Q_EMIT changed();
    }
}

} // namespace quorvantel::platform
