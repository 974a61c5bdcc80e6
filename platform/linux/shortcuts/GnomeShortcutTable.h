#pragma once

#include "platform/linux/shortcuts/Accelerator.h"
#include "platform/linux/shortcuts/GnomeSettings.h"

#include <QString>

#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace quorvantel::platform {

/// The shortcuts of GNOME's own: of its window manager, its shell and its media keys.
class GnomeShortcutTable {
public:
    /// `onChange` is called after every change of them.
    explicit GnomeShortcutTable(const std::function<void()>& onChange);

    /// What the accelerator does already, in the user's language, as in "Show the run command
    /// prompt"; absent when it does nothing.
    std::optional<QString> purposeOf(const Accelerator& accelerator) const;

private:
    std::vector<std::unique_ptr<GnomeSettings>> m_groups;
};

} // namespace quorvantel::platform
