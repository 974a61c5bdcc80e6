#pragma once

#include "platform/ClickMonitor.h"
#include "platform/linux/x11/X11Display.h"
#include "platform/linux/x11/X11RawEvents.h"

#include <memory>

namespace quorvantel::platform {

/// Observes clicks through raw button presses, which no grab is needed for.
///
/// A raw press does not say where it happened, so the server is asked what is under the pointer.
/// Nothing that is known from before would do: the pointer moves, and windows come and go under it.
class X11ClickMonitor : public ClickMonitor {
public:
    /// `rawEvents` must outlive this object and its tokens.
    X11ClickMonitor(const X11Display& display, X11RawEvents& rawEvents);

    std::unique_ptr<Token> observe(std::function<void()> handler) override;

private:
    bool isPointerOverOwnWindow() const;

    X11Display m_display;
    X11RawEvents& m_rawEvents;
};

} // namespace quorvantel::platform
