#pragma once

namespace quorvantel::platform {

/// From now on writes every message of the program as a line of its own to standard error, which
/// the session's journal collects.
///
/// Nobody waits for whoever reads it: a line that finds a full pipe or a halted terminal is
/// dropped, and one that is longer than fits in at once is cut.
void logToStandardError();

} // namespace quorvantel::platform
