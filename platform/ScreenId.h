#pragma once

#include <QString>

namespace quorvantel::platform {

/// Names a screen for as long as it is connected, whatever becomes of its place and size. Most
/// systems give a screen that comes back the same name.
struct ScreenId {
    QString name;

    friend bool operator==(const ScreenId&, const ScreenId&) = default;
};

} // namespace quorvantel::platform
