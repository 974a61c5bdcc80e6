#include "platform/linux/shortcuts/DesktopSession.h"

#include <array>

namespace quorvantel::platform {

namespace {

struct Trace {
    QStringView variable;
    QStringView desktop;
};

/// What compositors that may leave XDG_CURRENT_DESKTOP to the login set for their clients.
constexpr std::array traces{
    Trace{u"SWAYSOCK", u"sway"},
    Trace{u"HYPRLAND_INSTANCE_SIGNATURE", u"Hyprland"},
    Trace{u"LABWC_PID", u"labwc"},
    Trace{u"NIRI_SOCKET", u"niri"},
};

} // namespace

QStringList desktopNames(const QProcessEnvironment& environment) {
    QStringList names =
        environment.value(QStringLiteral("XDG_CURRENT_DESKTOP")).split(u':', Qt::SkipEmptyParts);
    for (const Trace& trace : traces) {
        if (names.isEmpty() && environment.contains(trace.variable.toString())) {
            names += trace.desktop.toString();
        }
    }
    return names;
}

std::vector<ShortcutWay> shortcutWays(const QStringList& desktops) {
    const auto is = [&](QStringView name) { return desktops.contains(name, Qt::CaseInsensitive); };
    if (is(u"KDE")) {
        // The portal of Plasma 5 answers that all went well and binds nothing.
        return {ShortcutWay::Kde};
    }
    if (is(u"GNOME")) {
        return {ShortcutWay::Portal, ShortcutWay::Gnome, ShortcutWay::User};
    }
    return {ShortcutWay::Portal, ShortcutWay::User};
}

} // namespace quorvantel::platform
