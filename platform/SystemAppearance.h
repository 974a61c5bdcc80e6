#pragma once

#include <QObject>

namespace quorvantel::platform {

/// How the desktop as a whole wants applications to look. Main thread only.
///
/// The font of the desktop's interface, the double-click time, whether anything is to move and the
/// like are the toolkit's to know; where it does not find them out by itself, the platform tells
/// it.
class SystemAppearance : public QObject {
    Q_OBJECT

public:
    using QObject::QObject;

    virtual bool prefersDark() const = 0;

    /// Whether the user asked for opaque surfaces.
    virtual bool reducesTransparency() const = 0;

    /// Whether the user asked for texts and outlines that stand out more.
    virtual bool increasesContrast() const = 0;

Q_SIGNALS:
    /// One of the answers is another one.
    void changed();
};

} // namespace quorvantel::platform
