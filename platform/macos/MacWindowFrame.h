#pragma once

#include "platform/WindowFrame.h"

namespace quorvantel::platform {

/// Gives a window an appearance of its own (`NSAppearance`), which its title bar is drawn in.
class MacWindowFrame final : public WindowFrame {
public:
    void setAppearance(QWindow& window, Appearance appearance) override;
};

} // namespace quorvantel::platform
