#pragma once

#include "platform/ClickMonitor.h"
#include "platform/linux/x11/X11RawEvents.h"

namespace quorvantel::platform {

/// Observes clicks through raw button presses, which no grab is needed for.
class X11ClickMonitor : public ClickMonitor {
public:
    /// `rawEvents` must outlive this object and its tokens.
    explicit X11ClickMonitor(X11RawEvents& rawEvents);

    std::unique_ptr<Token> observe(std::function<void()> handler) override;

private:
    X11RawEvents& m_rawEvents;
};

} // namespace quorvantel::platform
