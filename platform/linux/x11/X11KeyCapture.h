#pragma once

#include "platform/KeyCapture.h"
#include "platform/linux/x11/X11Display.h"
#include "platform/linux/x11/X11HotKeys.h"

#include <QAbstractNativeEventFilter>

#include <memory>

namespace quorvantel::platform {

/// Captures keys by an active grab of the keyboard, during which passive grabs sleep: the window
/// manager's shortcuts and other programs' hotkeys.
///
/// When another client holds the keyboard, a menu for instance, the grab is tried again for a
/// moment. Until it succeeds, the capture sees what the launcher's own windows get.
class X11KeyCapture : public KeyCapture, public QAbstractNativeEventFilter {
public:
    /// The hotkeys recognise their keys in whatever reaches the launcher, so they have to look
    /// after the capture. Native event filters run last in, first out; hence `hotKeys`, which must
    /// exist first.
    X11KeyCapture(const X11Display& display, X11HotKeys& hotKeys);
    ~X11KeyCapture() override;

    std::unique_ptr<Token> capture(QWindow& window, Handler handler) override;

    bool nativeEventFilter(const QByteArray& eventType, void* message, qintptr* result) override;

private:
    class Grab;

    X11Display m_display;
    X11HotKeys& m_hotKeys;
    /// The capture in force; not owned.
    Grab* m_grab = nullptr;
};

} // namespace quorvantel::platform
