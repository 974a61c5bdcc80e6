#pragma once

namespace quorvantel::platform {

/// Keeps the program running when the connection to the session manager breaks.
///
/// The library of that connection (Inter-Client Exchange) would end the program, and with it the
/// hotkey, for the rest of a session that may go on without its manager. While this object lives
/// the loss is logged instead. One instance at a time.
class SessionManagerLoss {
public:
    SessionManagerLoss();
    SessionManagerLoss(const SessionManagerLoss&) = delete;
    SessionManagerLoss& operator=(const SessionManagerLoss&) = delete;
    ~SessionManagerLoss();
};

} // namespace quorvantel::platform
