#pragma once

#include "platform/Screens.h"

namespace quorvantel::testing {

/// Screens that the test names, with the mouse on the first of them. Window geometry is the frame
/// turned over in that one.
class FakeScreens : public platform::Screens {
public:
    std::vector<platform::Screen> all() const override { return screens; }
    std::optional<platform::Screen> main() const override { return underMouse(); }
    std::optional<platform::Screen> underMouse() const override {
        return tells ? std::optional(screens.front()) : std::nullopt;
    }
    QRect toWindowGeometry(const QRectF& frame) const override {
        const double height = screens.front().frame.height();
        return QRectF(frame.x(), height - frame.bottom(), frame.width(), frame.height()).toRect();
    }

    std::vector<platform::Screen> screens{
        {{QStringLiteral("first")}, {0, 0, 1440, 900}, {0, 0, 1440, 900}}};
    /// Whether the system tells which screen is the main one and which one the mouse is on.
    bool tells = true;
};

} // namespace quorvantel::testing
