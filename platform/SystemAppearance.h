#pragma once

#include <QObject>

namespace quorvantel::platform {

/// How the desktop as a whole wants applications to look. Main thread only.
class SystemAppearance : public QObject {
    Q_OBJECT

public:
    using QObject::QObject;

    virtual bool prefersDark() const = 0;

    /// Whether the user asked for opaque surfaces.
    virtual bool reducesTransparency() const = 0;

Q_SIGNALS:
    void changed();
};

} // namespace quorvantel::platform
