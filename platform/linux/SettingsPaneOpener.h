#pragma once

#include <QUrl>

namespace quorvantel::platform {

/// Shows the pane of the running desktop's own settings program that a settings address stands for.
class SettingsPaneOpener {
public:
    virtual ~SettingsPaneOpener() = default;

    /// Returns false when no settings program here has such a pane, which does no harm.
    virtual bool open(const QUrl& url) = 0;
};

} // namespace quorvantel::platform
