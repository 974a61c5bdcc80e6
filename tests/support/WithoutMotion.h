#pragma once

#include "platform/toolkit/StillStyle.h"

#include <QApplication>

namespace quorvantel::testing {

/// While it exists, the toolkit is told that the user wants nothing to move.
class WithoutMotion {
public:
    WithoutMotion() {
        auto* const style = new platform::StillStyle;
        style->isStill = true;
        QApplication::setStyle(style);
    }
    WithoutMotion(const WithoutMotion&) = delete;
    WithoutMotion& operator=(const WithoutMotion&) = delete;
    ~WithoutMotion() { QApplication::setStyle(QStringLiteral("fusion")); }
};

} // namespace quorvantel::testing
