#pragma once

#include "platform/WindowActivator.h"

#include <functional>

namespace quorvantel::testing {

/// Counts the windows that are to come to the front.
class FakeWindowActivator : public platform::WindowActivator {
public:
    void activate(QWindow& /*window*/) override {
        ++activations;
        if (onActivate) {
            onActivate();
        }
    }
    QMargins frameMargins(QWindow& /*window*/) override { return margins; }

    int activations = 0;
    std::function<void()> onActivate;
    QMargins margins;
};

} // namespace quorvantel::testing
