#pragma once

#include "platform/linux/x11/X11Display.h"

namespace quorvantel::platform {

/// Says in one line that the X server is gone.
///
/// The toolkit ends the program with exit status 1 when it finds its connection broken, but it may
/// be drawing at that moment, and then it and Xlib report every request that fails. While this
/// object lives, that line replaces whatever is logged once the connection is broken, fatal
/// messages and the program's own, which begin with "Quorvantel: ", excepted. It also replaces what
/// Xlib prints before it ends the program. The message handler that was installed before gets the
/// rest.
///
/// One instance at a time, and no other message handler meanwhile.
class DisplayLossReport {
public:
    explicit DisplayLossReport(const X11Display& display);
    DisplayLossReport(const DisplayLossReport&) = delete;
    DisplayLossReport& operator=(const DisplayLossReport&) = delete;
    ~DisplayLossReport();
};

} // namespace quorvantel::platform
