#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace quorvantel::platform {

/// What a further start asks of the running launcher: to show its panel.
struct StartRequest {
    /// The X display of the start, as DISPLAY has it; empty when it has none.
    std::string display;
    /// What the desktop gave the start so that its window may come to the front: the startup ID or,
    /// without one, the activation token. Empty when there is none.
    std::string startupId;

    /// Reads the request from the environment.
    static StartRequest fromEnvironment();

    /// The message that carries the request. It stays as it is for good, since the running launcher
    /// may be older or newer than the start.
    std::string encoded() const;
    static std::optional<StartRequest> decoded(std::string_view message);

    friend bool operator==(const StartRequest&, const StartRequest&) = default;
};

/// The longest message; more is cut off.
inline constexpr std::size_t maximumRequestSize = 4096;

/// Whether two values of DISPLAY name the same X server: ":0" and ":0.0" do.
bool isSameDisplay(std::string_view one, std::string_view other);

} // namespace quorvantel::platform
