#pragma once

#include "support/XConnection.h"

namespace quorvantel::testing {

/// Another client that keeps the whole keyboard to itself, as an open menu does.
class ForeignGrab {
public:
    /// Waits until the keyboard can be had; throws std::runtime_error when it cannot.
    explicit ForeignGrab(const QByteArray& display);
    ForeignGrab(const ForeignGrab&) = delete;
    ForeignGrab& operator=(const ForeignGrab&) = delete;
    ~ForeignGrab();

private:
    bool grab();

    XConnection m_connection;
};

} // namespace quorvantel::testing
