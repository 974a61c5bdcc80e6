#pragma once

#include <QObject>

class QRegion;
class QWindow;

namespace quorvantel::platform {

/// What the desktop shows behind and around translucent windows. Main thread only.
///
/// The answers are known at once, whenever they are asked for; none waits for the window system.
class WindowBackdrop : public QObject {
    Q_OBJECT

public:
    using QObject::QObject;

    /// Whether translucent parts of a window show what is behind it; without, they show nothing.
    virtual bool isComposited() const = 0;

    /// Whether the desktop itself puts a shadow around the shape of every window, as far as its user
    /// wants one.
    virtual bool castsShadows() const = 0;

    /// Whether the desktop blurs what is behind a window when it is asked to.
    virtual bool offersBlur() const = 0;

    /// Has the desktop blur what is behind a part of the window, in points from its top-left
    /// corner; nothing for an empty region.
    virtual void setBlurBehind(QWindow& window, const QRegion& region) = 0;

Q_SIGNALS:
    /// One of the answers is another one from now on.
    void changed();
};

} // namespace quorvantel::platform
