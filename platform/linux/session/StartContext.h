#pragma once

#include "platform/linux/LaunchEnvironment.h"
#include "platform/linux/session/AccessibilityBus.h"
#include "platform/linux/start/FirstInstance.h"
#include "platform/linux/start/StartRequest.h"

#include <string>

namespace quorvantel::platform {

/// What the session left to the process when it started it.
struct StartContext {
    FirstInstance instance;
    /// As the environment had it. Nobody asked for a window where the tokens are empty.
    StartRequest request;
    /// The user's, without what was meant for this process alone.
    LaunchEnvironment environment;
    /// That of the session bus, also when it is silent; empty when there is none.
    std::string busAddress;
    AccessibilityBus::Address accessibilityBus;

    /// Takes it, so that neither the toolkit nor a launched program does, and keeps the toolkit
    /// from buses that it would wait for. To be called once, before the application object exists:
    /// as long as there is one thread, the environment can be changed.
    static StartContext take();
};

} // namespace quorvantel::platform
