#include "platform/macos/HotKeyStatuses.h"

namespace quorvantel::platform {

namespace {

// The result codes of CarbonEventsCore.h.
constexpr HotKeyStatus noError = 0;
constexpr HotKeyStatus internalError = -9868;
constexpr HotKeyStatus hotKeyExists = -9878;

QString reasonFor(HotKeyStatus status) {
    switch (status) {
    case internalError:
        return QStringLiteral("macOS does not allow this combination.");
    case hotKeyExists:
        return QStringLiteral("Another program has this combination.");
    default:
        return {};
    }
}

} // namespace

HotKeyState hotKeyState(HotKeyStatus status) {
    if (status == noError) {
        return HotKeyRegistered{};
    }
    return HotKeyUnavailable{status, reasonFor(status)};
}

} // namespace quorvantel::platform
