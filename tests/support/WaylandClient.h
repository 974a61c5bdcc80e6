#pragma once

#include "support/ChildProcess.h"
#include "support/WaylandCompositor.h"

#include <QRgb>
#include <QTemporaryFile>

namespace quorvantel::testing {

/// An ordinary application on a Wayland compositor: a program with one window, which writes down
/// the keys and clicks that reach it.
class WaylandClient {
public:
    /// What fills the window.
    static constexpr QRgb color = 0xffd8dce4;

    /// Returns once the window is shown and has the keyboard. Throws std::runtime_error when that
    /// does not happen.
    explicit WaylandClient(const WaylandCompositor& compositor);

    /// The characters of all keys pressed in the window up to now.
    QByteArray typed() const;

    /// How many button presses reached the window up to now.
    qsizetype clicks() const;

    /// Whether the window has the keyboard.
    bool isActive() const;

private:
    QByteArrayList events() const;

    QTemporaryFile m_log;
    ChildProcess m_process;
};

} // namespace quorvantel::testing
