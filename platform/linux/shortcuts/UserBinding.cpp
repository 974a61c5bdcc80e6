#include "platform/linux/shortcuts/UserBinding.h"

#include <array>

namespace quorvantel::platform {

namespace {

struct Configuration {
    QStringView desktop;
    /// Where the line belongs, as in "Put this line into …".
    QStringView place;
    AcceleratorSyntax syntax;
    /// The line, with %1 for the modifiers and the key, and %2 for the command.
    QStringView line;
};

constexpr std::array configurations{
    Configuration{u"sway",
                  u"~/.config/sway/config",
                  {u"Control+", u"Mod1+", u"Shift+", u"Mod4+"},
                  u"bindsym --to-code %1 exec %2"},
    Configuration{u"Hyprland",
                  u"~/.config/hypr/hyprland.conf",
                  {u"CTRL ", u"ALT ", u"SHIFT ", u"SUPER "},
                  u"bind = %1, exec, %2"},
    Configuration{u"river",
                  u"~/.config/river/init",
                  {u"Control+", u"Alt+", u"Shift+", u"Super+"},
                  u"riverctl map normal %1 spawn \"%2\""},
    Configuration{u"labwc",
                  u"~/.config/labwc/rc.xml, between <keyboard> and </keyboard>",
                  {u"C-", u"A-", u"S-", u"W-"},
                  u"<keybind key=\"%1\"><action name=\"Execute\" command=\"%2\" /></keybind>"},
    Configuration{u"niri",
                  u"~/.config/niri/config.kdl, into its binds",
                  {u"Ctrl+", u"Alt+", u"Shift+", u"Super+"},
                  u"%1 { spawn \"sh\" \"-c\" \"%2\"; }"},
};

/// Hyprland and river set the key apart from its modifiers.
QString combination(const Configuration& configuration, const Accelerator& accelerator) {
    QString text = written(accelerator, configuration.syntax);
    const QString key = written({accelerator.key, 0}, configuration.syntax);
    const QString modifiers = text.chopped(key.size() + (text.size() > key.size() ? 1 : 0));
    if (configuration.desktop == u"Hyprland") {
        return modifiers + QStringLiteral(", ") + key;
    }
    if (configuration.desktop == u"river") {
        return (modifiers.isEmpty() ? QStringLiteral("None") : modifiers) + u' ' + key;
    }
    return text;
}

} // namespace

HotKeyLeftToUser userBinding(const QStringList& desktops, const Accelerator& accelerator,
                             const QString& command) {
    for (const Configuration& known : configurations) {
        if (desktops.contains(known.desktop, Qt::CaseInsensitive)) {
            return {QStringLiteral("In %1 only you can bind a key. Put this line into %2:")
                        .arg(known.desktop, known.place),
                    known.line.toString().arg(combination(known, accelerator), command)};
        }
    }
    return {QStringLiteral("In this desktop only you can bind a key. Have %1 run this command:")
                .arg(readable(accelerator)),
            command};
}

} // namespace quorvantel::platform
