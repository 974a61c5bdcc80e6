#pragma once

#include "platform/Keyboard.h"

namespace quorvantel::platform {

/// Asks the layouts that the user has enabled (Text Input Sources) what a key types.
class MacKeyboard final : public Keyboard {
public:
    /// By the current layout, as it is with Command if that is held, and where that has no Latin
    /// character on the key, by the one that the system would type Latin text with.
    QChar baseCharacter(const QKeyEvent& event) override;
};

} // namespace quorvantel::platform
