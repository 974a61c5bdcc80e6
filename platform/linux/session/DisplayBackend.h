#pragma once

#include "platform/linux/DisplayServer.h"
#include "platform/linux/session/DisplayChoice.h"

#include <memory>
#include <span>

namespace quorvantel::platform {

/// A kind of display server that this program was built for.
struct DisplayBackend {
    DisplayProtocol protocol;
    /// The toolkit's platform plugin.
    const char* toolkitPlugin;
    /// Whether the server that the environment names is there, which takes well under a
    /// millisecond. To be asked before the application object exists, which ends the program
    /// without a server.
    bool (*answers)();
    /// The server that the toolkit is connected to. The application object must exist.
    std::unique_ptr<DisplayServer> (*connect)();
};

/// All of them.
std::span<const DisplayBackend> displayBackends();

} // namespace quorvantel::platform
