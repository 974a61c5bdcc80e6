#pragma once

#include <QByteArray>
#include <QRect>

#include <cstddef>
#include <vector>

namespace quorvantel::testing {

/// Divides the screen of an X server into monitors, as RandR reports them to its clients. The
/// rectangles are in pixels from the top-left corner of the root window; the first is the primary
/// monitor. Replaces the monitors of an earlier call. Throws std::runtime_error when the server
/// does not accept them.
void setMonitors(const QByteArray& display, const std::vector<QRect>& monitors);

/// Takes away the last of `count` monitors that `setMonitors` has set.
void removeLastMonitor(const QByteArray& display, std::size_t count);

} // namespace quorvantel::testing
