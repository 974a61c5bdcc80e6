#pragma once

#include "platform/linux/start/FileDescriptor.h"

namespace quorvantel::platform {

/// Opens the folder in which the instances of one user find each other, and makes it when it is
/// missing: "quorvantel" in `$XDG_RUNTIME_DIR` (XDG Base Directory Specification), else
/// "quorvantel-<user ID>" in the folder for temporary files.
///
/// None when neither is the user's alone, so that nobody else can answer in a launcher's place.
FileDescriptor openInstanceFolder();

} // namespace quorvantel::platform
