#pragma once

#include "platform/linux/session/AccessibilityBus.h"
#include "platform/linux/start/FirstInstance.h"
#include "platform/linux/start/StartRequest.h"

#include <QByteArray>

#include <optional>

namespace quorvantel::platform {

/// What the session left to the process when it started it.
struct StartContext {
    FirstInstance instance;
    /// As the environment had it. Nobody asked for a window where the tokens are empty.
    StartRequest request;
    /// DBUS_SESSION_BUS_ADDRESS as it was, when the bus is silent. The variable then names no bus,
    /// so that the toolkit does not wait for it.
    std::optional<QByteArray> silentBus;
    AccessibilityBus::Address accessibilityBus;

    /// Takes it, so that neither the toolkit nor a launched program does. To be called once, before
    /// the application object exists.
    static StartContext take();
};

/// Gives launched programs the session bus that the launcher itself does without. To be called once
/// the toolkit has looked for it.
void restoreBusAddress(const StartContext& start);

} // namespace quorvantel::platform
