#pragma once

#include <functional>

namespace quorvantel::platform {

/// Ends the program with one line in the log, and exit status 1, once its display server is gone.
///
/// The toolkit would end it, too, but it may be drawing when the connection breaks, and then each
/// failed request is a line. While this object lives, the line replaces the first of these, fatal
/// messages and the program's own, which begin with "Quorvantel: ", excepted. One instance at a
/// time, and no other message handler meanwhile.
class DisplayLossReport {
public:
    /// `isGone` is asked at every message, from the thread that logs it.
    explicit DisplayLossReport(std::function<bool()> isGone);
    DisplayLossReport(const DisplayLossReport&) = delete;
    DisplayLossReport& operator=(const DisplayLossReport&) = delete;
    ~DisplayLossReport();
};

} // namespace quorvantel::platform
