#include "platform/macos/MacScreens.h"

#include "platform/macos/CoreFoundationPointers.h"
#include "platform/macos/NotificationObserver.h"
#include "platform/macos/ScreenPlane.h"

#include <QHash>

#import <AppKit/AppKit.h>
#include <ColorSync/ColorSync.h>

#include <utility>

namespace quorvantel::platform {

namespace {

QString nameOf(CGDirectDisplayID display) {
    const CoreFoundationPointer<CFUUIDRef> identifier(CGDisplayCreateUUIDFromDisplayID(display));
    if (!identifier) {
        return QString::number(display);
    }
    const CoreFoundationPointer<CFStringRef> text(
        CFUUIDCreateString(kCFAllocatorDefault, identifier.get()));
    return QString::fromCFString(text.get());
}

} // namespace

struct MacScreens::Native {
    Screen describe(NSScreen* screen) {
        NSNumber* number = screen.deviceDescription[@"NSScreenNumber"];
        const CGDirectDisplayID display = number.unsignedIntValue;
        if (!names.contains(display)) {
            names.insert(display, nameOf(display));
        }
        return {{names.value(display)},
                QRectF::fromCGRect(screen.frame),
                QRectF::fromCGRect(screen.visibleFrame)};
    }

    /// Of the displays since the last change, lest the system looks them up while the user waits.
    QHash<CGDirectDisplayID, QString> names;
    std::optional<NotificationObserver> changes;
};

MacScreens::MacScreens() : m_native(std::make_unique<Native>()), m_known(all()) {
    m_native->changes.emplace(NSNotificationCenter.defaultCenter,
                              NSApplicationDidChangeScreenParametersNotification, nil, [this] {
                                  m_native->names.clear();
                                  check();
                              });
}

MacScreens::~MacScreens() = default;

std::vector<Screen> MacScreens::all() const {
    std::vector<Screen> screens;
    for (NSScreen* screen in NSScreen.screens) {
        screens.push_back(m_native->describe(screen));
    }
    return screens;
}

std::optional<Screen> MacScreens::main() const {
    NSScreen* screen = NSScreen.mainScreen;
    return screen == nil ? std::nullopt : std::optional(m_native->describe(screen));
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
