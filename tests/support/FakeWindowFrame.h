#pragma once

#include "platform/WindowFrame.h"

namespace quorvantel::testing {

/// Remembers what the last window's frame is to look like.
class FakeWindowFrame : public platform::WindowFrame {
public:
    void setAppearance(QWindow& /*window*/, Appearance newAppearance) override {
        appearance = newAppearance;
    }

    Appearance appearance = Appearance::System;
};

} // namespace quorvantel::testing
