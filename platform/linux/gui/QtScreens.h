#pragma once

#include "platform/Screens.h"

class QScreen;

namespace quorvantel::platform {

/// The screens as Qt reports them.
class QtScreens : public Screens {
    Q_OBJECT

public:
    QtScreens();

    std::vector<Screen> all() const override;
    std::optional<Screen> main() const override;
    std::optional<Screen> underMouse() const override;
    QRect toWindowGeometry(const QRectF& frame) const override;

protected:
    /// A whole screen, in Qt's plane.
    virtual QRect geometry(const QScreen& screen) const;

    /// The part of a screen that is free of bars and docks, in Qt's plane.
    virtual QRect visibleGeometry(const QScreen& screen) const;

    /// Looks at the screens again from the event loop, once for all that happens until then, and
    /// says so if they are others.
    void mayHaveChanged();

private:
    void watch(const QScreen& screen);
    void check();
    Screen describe(const QScreen& screen) const;

    /// As of the last look; absent before the first.
    std::optional<std::vector<Screen>> m_known;
    bool m_checkPending = false;
};

/// The top-left corner of a screen in Qt's plane; that of the main one when there is no such screen
/// or the choice is the system's.
QPoint topLeftOf(const std::optional<ScreenId>& screen);

} // namespace quorvantel::platform
