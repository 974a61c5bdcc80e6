#pragma once

#include "platform/Screens.h"

namespace quorvantel::platform {

/// The screens as Qt reports them.
class QtScreens : public Screens {
public:
    std::vector<Screen> all() const override;
    std::optional<Screen> main() const override;
    QPointF mouseLocation() const override;
    QRect toWindowGeometry(const QRectF& frame) const override;
    QRectF fromWindowGeometry(const QRect& geometry) const override;
};

} // namespace quorvantel::platform
