#pragma once

#include "support/WaitUntil.h"

#include <QElapsedTimer>
#include <QScreen>
#include <QWidget>

#include <utility>

namespace quorvantel::testing {

/// What the screen shows of a window: what was drawn last, rather than what would be drawn now.
inline QImage shownPicture(const QWidget& window) {
    return window.screen()
        ->grabWindow(window.winId())
        .toImage()
        .convertToFormat(QImage::Format_RGB32);
}

/// Whether the screen comes to show what the window would draw now, and nothing moves any more. It
/// does not when a widget forgets that it has to be drawn anew.
inline bool isUpToDate(QWidget& window) {
    constexpr int restMilliseconds = 50;
    QImage last;
    QElapsedTimer since;
    return waitUntil(
        [&] {
            const QImage now = window.grab().toImage().convertToFormat(QImage::Format_RGB32);
            if (std::exchange(last, now) != now || shownPicture(window) != now) {
                since.start();
            }
            return since.hasExpired(restMilliseconds);
        },
        std::chrono::seconds(5));
}

} // namespace quorvantel::testing
