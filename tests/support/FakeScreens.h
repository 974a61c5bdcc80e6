#pragma once

#include "platform/Screens.h"

namespace quorvantel::testing {

/// One screen and a mouse that goes where the test puts it. Window geometry is the frame turned
/// over in that screen.
class FakeScreens : public platform::Screens {
public:
    std::vector<platform::Screen> all() const override { return {screen}; }
    std::optional<platform::Screen> main() const override { return screen; }
    QPointF mouseLocation() const override { return mouse; }
    QRect toWindowGeometry(const QRectF& frame) const override { return turned(frame).toRect(); }
    QRectF fromWindowGeometry(const QRect& geometry) const override { return turned(geometry); }

    platform::Screen screen{{0, 0, 1440, 900}, {0, 0, 1440, 900}};
    QPointF mouse{10, 10};

private:
    QRectF turned(const QRectF& rectangle) const {
        return {rectangle.x(), screen.frame.height() - rectangle.y() - rectangle.height(),
                rectangle.width(), rectangle.height()};
    }
};

} // namespace quorvantel::testing
