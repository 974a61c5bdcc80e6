#pragma once

namespace quorvantel::platform {

/// Keeps the program running when the connection to the session manager breaks, and logs that.
///
/// The library of that connection (Inter-Client Exchange) would end the program, and with it the
/// hotkey, for the rest of a session that may go on without its manager. Holds until the end of the
/// process, since the toolkit leaves the session as one of the last things. Launched programs are
/// not affected.
void surviveSessionManagerLoss();

} // namespace quorvantel::platform
