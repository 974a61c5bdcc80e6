#pragma once

#include "platform/ClickMonitor.h"
#include "platform/linux/x11/X11Display.h"
#include "platform/linux/x11/X11EventHandler.h"
#include "platform/linux/x11/X11RawEvents.h"

#include <memory>
#include <optional>

namespace quorvantel::platform {

/// Observes clicks through raw button presses, which no grab is needed for.
///
/// A raw press does not say where it happened, so the server is asked what is under the pointer.
/// Nothing that is known from before would do: the pointer moves, and windows come and go under it.
/// Where it has left a window of the launcher meanwhile, as in a quick drag, the press itself
/// tells: the server sends it to that window right after the raw one, with the same time.
class X11ClickMonitor : public ClickMonitor, public X11EventHandler {
public:
    /// `rawEvents` must outlive this object and its tokens.
    X11ClickMonitor(const X11Display& display, X11EventDispatcher& events, X11RawEvents& rawEvents);

    std::unique_ptr<Token> observe(std::function<void()> handler) override;

    bool handleEvent(const xcb_generic_event_t& event) override;

private:
    class Observation;

    bool isPointerOverOwnWindow() const;

    X11Display m_display;
    X11RawEvents& m_rawEvents;
    /// The major opcode of the X Input Extension; 0 when the server lacks it.
    std::uint8_t m_inputOpcode;
    /// The time of the latest press in a window of the launcher.
    std::optional<xcb_timestamp_t> m_ownPress;
};

} // namespace quorvantel::platform
