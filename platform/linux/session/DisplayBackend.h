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
    /// A connection to the server that the environment names, well within a millisecond; null when
    /// there is none to be had, in which case the application object would end the program. To be
    /// kept until that object is there: an X server starts anew when its only client leaves.
    std::shared_ptr<const void> (*reach)();
    /// Tells the toolkit by the environment what it asks there. To be called before the application
    /// object exists, and not for launched programs to inherit.
    void (*prepareToolkit)();
    /// The server that the toolkit is connected to. The application object must exist.
    std::unique_ptr<DisplayServer> (*connect)();
};

/// All of them.
std::span<const DisplayBackend> displayBackends();

} // namespace quorvantel::platform
