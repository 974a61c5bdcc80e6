#pragma once

#include <QByteArray>
#include <QString>

#include <vector>

namespace quorvantel::platform {

/// How programs and the display server talk.
enum class DisplayProtocol { Wayland, X11 };

/// What the environment tells of the session's display servers. An absent variable is empty.
struct SessionVariables {
    /// QT_QPA_PLATFORM.
    QByteArray toolkitPlatform;
    /// WAYLAND_DISPLAY.
    QByteArray waylandDisplay;
    /// DISPLAY.
    QByteArray x11Display;
    /// XDG_SESSION_TYPE.
    QByteArray sessionType;

    static SessionVariables fromEnvironment();
};

/// The display servers that are worth a try, the best first.
///
/// What the user asks the toolkit for (the plugins "wayland…" and "xcb" in QT_QPA_PLATFORM, in
/// their order) counts alone. Otherwise Wayland comes before X11, since what a Wayland session
/// offers programs for X11 has neither its keys nor its windows; where only the session's type
/// says Wayland, the compositor has its usual name.
std::vector<DisplayProtocol> displayCandidates(const SessionVariables& variables);

/// Why none of those that were tried will do, in words for a log line.
QString displayProblem(const SessionVariables& variables,
                       const std::vector<DisplayProtocol>& tried);

} // namespace quorvantel::platform
