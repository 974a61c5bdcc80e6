#pragma once

#include "platform/SystemAppearance.h"

namespace quorvantel::platform {

/// Reads the desktop's light or dark look off the palette that its platform theme gives Qt.
class PaletteSystemAppearance : public SystemAppearance {
    Q_OBJECT

public:
    PaletteSystemAppearance();

    bool prefersDark() const override { return m_prefersDark; }
    bool reducesTransparency() const override { return false; }
    bool increasesContrast() const override { return false; }

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool m_prefersDark;
};

} // namespace quorvantel::platform
