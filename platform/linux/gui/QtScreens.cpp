#include "platform/linux/gui/QtScreens.h"

#include <QCursor>
#include <QGuiApplication>
#include <QScreen>

namespace quorvantel::platform {

namespace {

/// The y coordinate, downward, of the line where the upward plane has its origin.
qreal baseline() {
    const QScreen* const first = QGuiApplication::primaryScreen();
    return first == nullptr ? 0 : first->geometry().y() + first->geometry().height();
}

/// Turns a rectangle over; the way back is the same.
QRectF flipped(const QRectF& rectangle) {
    return {rectangle.x(), baseline() - rectangle.y() - rectangle.height(), rectangle.width(),
            rectangle.height()};
}

} // namespace

std::vector<Screen> QtScreens::all() const {
    std::vector<Screen> screens;
    for (const QScreen* const screen : QGuiApplication::screens()) {
        screens.push_back(describe(*screen));
    }
    return screens;
}

std::optional<Screen> QtScreens::main() const {
    const QScreen* const screen = QGuiApplication::primaryScreen();
    if (screen == nullptr) {
        return std::nullopt;
    }
    return describe(*screen);
}

QPointF QtScreens::mouseLocation() const {
    const QPoint location = QCursor::pos();
    // Qt names a pixel by its top-left corner, the upward plane by its bottom-left one.
    return {static_cast<qreal>(location.x()), baseline() - location.y() - 1};
}

QRect QtScreens::toWindowGeometry(const QRectF& frame) const {
    return flipped(frame).toRect();
}

QRectF QtScreens::fromWindowGeometry(const QRect& geometry) const {
    return flipped(geometry);
}

QRect QtScreens::visibleGeometry(const QScreen& screen) const {
    return screen.availableGeometry();
}

Screen QtScreens::describe(const QScreen& screen) const {
    return {flipped(screen.geometry()), flipped(visibleGeometry(screen))};
}

} // namespace quorvantel::platform
