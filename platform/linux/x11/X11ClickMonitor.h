#pragma once

#include "platform/ClickMonitor.h"
#include "platform/linux/x11/X11Display.h"
#include "platform/linux/x11/X11RawEvents.h"

#include <QAbstractNativeEventFilter>

#include <memory>

namespace quorvantel::platform {

/// Observes clicks through raw button presses, which no grab is needed for.
///
/// A raw press does not say where it happened, and by the time it is handled the pointer may be
/// elsewhere. So the pointer's crossings into and out of the launcher's windows are followed, which
/// arrive in order with the presses.
class X11ClickMonitor : public ClickMonitor, public QAbstractNativeEventFilter {
public:
    /// `rawEvents` must outlive this object and its tokens.
    X11ClickMonitor(const X11Display& display, X11RawEvents& rawEvents);
    ~X11ClickMonitor() override;

    std::unique_ptr<Token> observe(std::function<void()> handler) override;

    bool nativeEventFilter(const QByteArray& eventType, void* message, qintptr* result) override;

private:
    X11RawEvents& m_rawEvents;
    /// The major opcode of the X Input Extension; 0 when the server lacks it.
    std::uint8_t m_inputOpcode;
    bool m_isOverOwnWindow = false;
};

} // namespace quorvantel::platform
