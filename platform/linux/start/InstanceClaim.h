#pragma once

#include "platform/linux/start/FirstInstance.h"
#include "platform/linux/start/StartRequest.h"

#include <chrono>
#include <string>
#include <variant>

namespace quorvantel::platform {

/// The running launcher did what was asked.
struct HandedOver {};

/// The running launcher did not, for a reason in words for a log line.
struct Refused {
    std::string reason;
};

/// There is no lock to be had, for a reason in words for a log line, so nobody knows who runs.
struct Unlockable {
    std::string reason;
};

using InstanceClaim = std::variant<FirstInstance, HandedOver, Refused, Unlockable>;

/// Makes this process the user's one launcher or hands the request to the one that runs, whichever
/// is possible first.
///
/// Of any number of processes that claim this at once, one becomes the first. A lock or a socket
/// that a killed process left does no harm. Takes as long as the running launcher needs for the
/// request, at most `patience`.
InstanceClaim claimInstance(const FileDescriptor& folder, const StartRequest& request,
                            std::chrono::milliseconds patience);

/// What the launcher answers to a request: nothing to object, or why it refuses.
std::string encodedAnswer(const std::string& objection);

} // namespace quorvantel::platform
