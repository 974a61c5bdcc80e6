#include "platform/linux/shortcuts/GnomeShortcutTable.h"

#include <algorithm>
#include <array>

namespace quorvantel::platform {

namespace {

/// The window manager comes first: of two holders of a shortcut it is the one that acts.
constexpr std::array schemas{
    "org.gnome.desktop.wm.keybindings",
    "org.gnome.mutter.keybindings",
    "org.gnome.mutter.wayland.keybindings",
    "org.gnome.shell.keybindings",
    "org.gnome.settings-daemon.plugins.media-keys",
};

bool holds(const QStringList& shortcuts, const Accelerator& accelerator) {
    return std::ranges::any_of(shortcuts, [&](const QString& shortcut) {
        const auto held = fromGtkAccelerator(shortcut);
        return held && held->isSameAs(accelerator);
    });
}

} // namespace

GnomeShortcutTable::GnomeShortcutTable(const std::function<void()>& onChange) {
    for (const char* const schema : schemas) {
        if (auto group = GnomeSettings::find(schema)) {
            group->observe(onChange);
            m_groups.push_back(std::move(group));
        }
    }
}

std::optional<QString> GnomeShortcutTable::purposeOf(const Accelerator& accelerator) const {
    for (const auto& group : m_groups) {
        for (const QByteArray& key : group->listKeys()) {
            if (holds(group->list(key.constData()), accelerator)) {
                const QString summary = group->summary(key.constData());
                return summary.isEmpty() ? QString::fromUtf8(key) : summary;
            }
        }
    }
    return std::nullopt;
}

} // namespace quorvantel::platform
