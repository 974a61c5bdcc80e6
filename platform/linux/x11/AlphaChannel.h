#pragma once

class QWindow;

namespace quorvantel::platform {

/// Has a window that does not exist on the display server yet be created with an alpha channel.
void requestAlphaChannel(QWindow& window);

} // namespace quorvantel::platform
