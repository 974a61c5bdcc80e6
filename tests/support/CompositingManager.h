#pragma once

#include "support/XConnection.h"

#include <QByteArray>

namespace quorvantel::testing {

/// A client that says that it is the compositing manager of the screen (Extended Window Manager
/// Hints), and no more: what is on the screen stays as it is.
class CompositingManager {
public:
    explicit CompositingManager(const QByteArray& display = qgetenv("DISPLAY"));

    /// Says, as KWin does, that it blurs on request what is behind windows.
    void offerBlur();

    void withdrawBlur();

private:
    XConnection m_connection;
};

} // namespace quorvantel::testing
