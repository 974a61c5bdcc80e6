#include "platform/macos/ScreenPlane.h"

#include <algorithm>

namespace quorvantel::platform {

std::optional<Screen> screenAt(QPointF point, const std::vector<Screen>& screens) {
    const auto found = std::ranges::find_if(screens, [point](const Screen& screen) {
        const QRectF& frame = screen.frame;
        return point.x() >= frame.left() && point.x() < frame.right() && point.y() > frame.top() &&
               point.y() <= frame.bottom();
    });
    return found == screens.end() ? std::nullopt : std::optional(*found);
}

QRectF turnedOver(const QRectF& rectangle, double height) {
    return {rectangle.x(), height - rectangle.bottom(), rectangle.width(), rectangle.height()};
}

QPointF turnedOver(QPointF point, double height) {
    return {point.x(), height - point.y()};
}

QRectF frameOnScreen(const QRect& frame, const Screen& screen) {
    const QRectF exact(frame);
    return {screen.frame.left() + exact.left(), screen.frame.bottom() - exact.bottom(),
            exact.width(), exact.height()};
}

} // namespace quorvantel::platform
