#pragma once

#include "e2e/LauncherSession.h"

namespace quorvantel {

/// Installs so many applications. Every letter finds names of its own in front.
inline void addApplications(testing::LauncherSession& session, int count) {
    for (int index = 0; index < count; ++index) {
        const QString name = QStringLiteral("%1%2 Tool %3")
                                 .arg(QChar(u'A' + index % 26))
                                 .arg(QChar(u'a' + index / 26 % 26))
                                 .arg(index);
        session.addApplication(QStringLiteral("generated%1").arg(index), name);
    }
}

} // namespace quorvantel
