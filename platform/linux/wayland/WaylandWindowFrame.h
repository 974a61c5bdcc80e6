#pragma once

#include "platform/WindowFrame.h"

namespace quorvantel::platform {

/// Frames as the compositor or the toolkit draws them: no protocol that is in wide use lets a
/// client choose.
class WaylandWindowFrame final : public WindowFrame {
public:
    void setAppearance(QWindow& /*window*/, Appearance /*appearance*/) override {}
};

} // namespace quorvantel::platform
