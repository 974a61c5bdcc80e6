#include "platform/linux/gui/QtScreens.h"

#include <QCursor>
#include <QGuiApplication>
#include <QScreen>

#include <algorithm>
#include <utility>

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

QtScreens::QtScreens() {
    connect(qGuiApp, &QGuiApplication::screenAdded, this, [this](const QScreen* screen) {
        watch(*screen);
        mayHaveChanged();
    });
    connect(qGuiApp, &QGuiApplication::screenRemoved, this, &QtScreens::mayHaveChanged);
    connect(qGuiApp, &QGuiApplication::primaryScreenChanged, this, &QtScreens::mayHaveChanged);
    for (const QScreen* const screen : QGuiApplication::screens()) {
        watch(*screen);
    }
    // Queued, for what a derived class knows of the screens is part of it.
    mayHaveChanged();
}

void QtScreens::watch(const QScreen& screen) {
    connect(&screen, &QScreen::geometryChanged, this, &QtScreens::mayHaveChanged);
    connect(&screen, &QScreen::availableGeometryChanged, this, &QtScreens::mayHaveChanged);
}

void QtScreens::mayHaveChanged() {
    if (!std::exchange(m_checkPending, true)) {
        QMetaObject::invokeMethod(this, &QtScreens::check, Qt::QueuedConnection);
    }
}

void QtScreens::check() {
    m_checkPending = false;
    std::vector<Screen> screens = all();
    const bool isChange = m_known && *m_known != screens;
    m_known = std::move(screens);
    if (isChange) {
        Q_EMIT changed();
    }
}

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

std::optional<Screen> QtScreens::underMouse() const {
    const QPoint location = QCursor::pos();
    for (const QScreen* const screen : QGuiApplication::screens()) {
        if (screen->geometry().contains(location)) {
            return describe(*screen);
        }
    }
    return std::nullopt;
}

QRect QtScreens::toWindowGeometry(const QRectF& frame) const {
    return flipped(frame).toRect();
}

QRect QtScreens::geometry(const QScreen& screen) const {
    return screen.geometry();
}

QRect QtScreens::visibleGeometry(const QScreen& screen) const {
    return screen.availableGeometry();
}

Screen QtScreens::describe(const QScreen& screen) const {
    return {{screen.name()}, flipped(geometry(screen)), flipped(visibleGeometry(screen))};
}

QPoint topLeftOf(const std::optional<ScreenId>& screen) {
    const auto screens = QGuiApplication::screens();
    const auto found = std::ranges::find_if(
        screens, [&](const QScreen* known) { return screen && known->name() == screen->name; });
    const QScreen* const chosen =
        found == screens.end() ? QGuiApplication::primaryScreen() : *found;
    return chosen == nullptr ? QPoint() : chosen->geometry().topLeft();
}

} // namespace quorvantel::platform
