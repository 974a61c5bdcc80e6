#pragma once

#include "platform/linux/DesktopPreferences.h"

#include <QObject>

namespace quorvantel::platform {

/// What the session's settings manager tells every program (XSETTINGS protocol), now and whenever
/// it tells something else, ends or is replaced. Nothing while there is none. Main thread only.
class SettingsManager : public QObject {
    Q_OBJECT

public:
    virtual const XSettingsValues& values() const = 0;

Q_SIGNALS:
    void changed();
};

} // namespace quorvantel::platform
