#pragma once

#include <QWindow>

#import <AppKit/AppKit.h>

namespace quorvantel::platform {

/// The view that a window of the toolkit's is drawn in, created if need be. For Objective-C++
/// alone.
inline NSView* _Nonnull nativeView(QWindow& window) {
    return (__bridge NSView*)reinterpret_cast<void*>(window.winId());
}

/// The system's window around that view; nil where it is in none.
inline NSWindow* _Nullable nativeWindow(QWindow& window) {
    return nativeView(window).window;
}

} // namespace quorvantel::platform
