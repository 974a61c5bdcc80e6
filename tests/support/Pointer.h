#pragma once

#include "support/XConnection.h"

#include <QPoint>

namespace quorvantel::testing {

/// Moves and clicks the real pointer (XTEST extension). Positions are pixels from the top-left
/// corner of the root window.
class Pointer {
public:
    enum class Button : std::uint8_t {
        Left = 1,
        Middle = 2,
        Right = 3,
        WheelUp = 4,
        WheelDown = 5
    };

    explicit Pointer(const XConnection& connection) : m_connection(connection) {}

    void moveTo(QPoint position);
    void hold(Button button = Button::Left);
    void release(Button button = Button::Left);
    void click(QPoint position, Button button = Button::Left);
    QPoint position() const;

private:
    void send(std::uint8_t eventType, std::uint8_t detail, QPoint position);

    const XConnection& m_connection;
};

} // namespace quorvantel::testing
