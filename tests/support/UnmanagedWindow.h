#pragma once

#include "support/WaitUntil.h"

#include <QWindow>

#include <functional>
#include <utility>

namespace quorvantel::testing {

/// A window of the test's own that no window manager touches, on the screen from the start. It
/// counts the keys and the clicks that reach it.
class UnmanagedWindow : public QWindow {
public:
    explicit UnmanagedWindow(const QRect& place) {
        setFlags(Qt::Tool | Qt::BypassWindowManagerHint);
        setGeometry(place);
        show();
        waitUntil([this] { return isExposed(); });
    }

    /// Called once, by the next key.
    std::function<void()> onKey;
    int presses = 0;
    int clicks = 0;

protected:
    void keyPressEvent(QKeyEvent* /*event*/) override {
        ++presses;
        if (onKey) {
            std::exchange(onKey, nullptr)();
        }
    }
    void mousePressEvent(QMouseEvent* /*event*/) override { ++clicks; }
};

} // namespace quorvantel::testing
