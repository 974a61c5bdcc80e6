#pragma once

#include "platform/Platform.h"
#include "platform/linux/start/FirstInstance.h"

#include <QByteArray>

#include <optional>

namespace quorvantel::platform {

struct StartContext {
    FirstInstance instance;
    /// What the desktop gave the start so that a window may come to the front; empty when nobody
    /// asked for one.
    QByteArray startupId;
    /// DBUS_SESSION_BUS_ADDRESS as it was, when the bus is silent. The variable then names no bus,
    /// so that the toolkit does not wait for it.
    std::optional<QByteArray> silentBus;
};

/// Gives launched programs the session bus that the launcher itself does without. To be called once
/// the toolkit has looked for it.
void restoreBusAddress(const StartContext& start);

} // namespace quorvantel::platform
