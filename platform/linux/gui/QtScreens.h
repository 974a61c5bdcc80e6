#pragma once

#include "platform/Screens.h"

class QScreen;

namespace quorvantel::platform {

/// The screens as Qt reports them.
class QtScreens : public Screens {
public:
    std::vector<Screen> all() const override;
    std::optional<Screen> main() const override;
    QPointF mouseLocation() const override;
    QRect toWindowGeometry(const QRectF& frame) const override;
    QRectF fromWindowGeometry(const QRect& geometry) const override;

protected:
    /// The part of a screen that is free of bars and docks, in Qt's plane.
    virtual QRect visibleGeometry(const QScreen& screen) const;

private:
    Screen describe(const QScreen& screen) const;
};

} // namespace quorvantel::platform
