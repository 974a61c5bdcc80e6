#pragma once

#include "platform/linux/session/AccessibilityBus.h"
#include "platform/linux/start/FirstInstance.h"

#include <QByteArray>

#include <optional>

namespace quorvantel::platform {

/// What the session left to the process when it started it.
struct StartContext {
    FirstInstance instance;
    /// What the desktop gave the start so that a window may come to the front; empty when nobody
    /// asked for one.
    QByteArray startupId;
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
