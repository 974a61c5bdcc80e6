#pragma once

namespace quorvantel::platform {

/// From now on the program runs on when the terminal that it was started from would stop it, as
/// with Control+Z. A stopped launcher could not let go of the keyboard that its hotkey takes, and
/// nobody could type the command that continues it. Launched programs are stopped as ever.
void outlastTerminalStops();

} // namespace quorvantel::platform
