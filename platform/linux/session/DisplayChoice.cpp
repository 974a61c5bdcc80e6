#include "platform/linux/session/DisplayChoice.h"

#include <QStringList>

namespace quorvantel::platform {

namespace {

QString description(const char* variable, const QByteArray& value) {
    return QString::fromLatin1(variable) + (value.isEmpty()
                                                ? QStringLiteral(" (not set)")
                                                : QString(u'=' + QString::fromLocal8Bit(value)));
}

std::vector<DisplayProtocol> chosenByUser(const QByteArray& toolkitPlatform) {
    std::vector<DisplayProtocol> chosen;
    for (const QByteArray& entry : toolkitPlatform.split(';')) {
        // Options of the plugin follow a colon.
        const QByteArray plugin = entry.split(':').front();
        if (plugin.startsWith("wayland")) {
            chosen.push_back(DisplayProtocol::Wayland);
        } else if (plugin == "xcb") {
            chosen.push_back(DisplayProtocol::X11);
        }
    }
    return chosen;
}

} // namespace

SessionVariables SessionVariables::fromEnvironment() {
    return {qgetenv("QT_QPA_PLATFORM"), qgetenv("WAYLAND_DISPLAY"), qgetenv("DISPLAY"),
            qgetenv("XDG_SESSION_TYPE")};
}

std::vector<DisplayProtocol> displayCandidates(const SessionVariables& variables) {
    std::vector<DisplayProtocol> candidates = chosenByUser(variables.toolkitPlatform);
    if (!candidates.empty()) {
        return candidates;
    }
    if (!variables.waylandDisplay.isEmpty() || variables.sessionType == "wayland") {
        candidates.push_back(DisplayProtocol::Wayland);
    }
    if (!variables.x11Display.isEmpty()) {
        candidates.push_back(DisplayProtocol::X11);
    }
    return candidates;
}

QString displayProblem(const SessionVariables& variables,
                       const std::vector<DisplayProtocol>& tried) {
    if (tried.empty()) {
        return QStringLiteral("this session offers no display server that the launcher can use");
    }
    QStringList places;
    for (const DisplayProtocol protocol : tried) {
        places << (protocol == DisplayProtocol::Wayland
                       ? description("WAYLAND_DISPLAY", variables.waylandDisplay)
                       : description("DISPLAY", variables.x11Display));
    }
    return QStringLiteral("no display server answers at ") + places.join(QStringLiteral(" or "));
}

} // namespace quorvantel::platform
