#pragma once

#include "support/ChildProcess.h"
#include "support/WaylandCompositor.h"

#include <QPoint>

#include <initializer_list>

namespace quorvantel::testing {

/// The keyboard and the pointer of a user of a Wayland compositor, one of each for the life of this
/// object, held by a program of their own. Keys and buttons are the kernel's codes
/// (linux/input-event-codes.h), on a US layout.
///
/// Every call returns once the compositor has taken note of it, though not its clients.
class WaylandInput {
public:
    /// The compositor must outlive the object. Throws std::runtime_error when the compositor takes
    /// no input from programs.
    explicit WaylandInput(const WaylandCompositor& compositor);

    /// Presses keys one after the other and lets go of them in reverse order.
    void press(std::initializer_list<int> keys);
    void setKeyDown(int key, bool down);

    /// Types lower-case letters and spaces.
    void type(const QByteArray& text);

    /// In points from the top-left corner of all outputs.
    void moveTo(const QPoint& position);
    void click(const QPoint& position);
    void setButtonDown(bool down);

private:
    void send(const QString& command);
    void awaitDone();

    const WaylandCompositor& m_compositor;
    ChildProcess m_process;
};

} // namespace quorvantel::testing
