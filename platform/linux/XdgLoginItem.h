#pragma once

#include "platform/LoginItem.h"

#include <QString>

#include <functional>

namespace quorvantel::platform {

/// The launcher's entry among the programs that the desktop starts at login (Desktop Application
/// Autostart Specification), which the desktops' own settings list and switch, too.
///
/// The entry runs a script beside the launcher's program, which prefers the systemd unit where
/// systemd runs the session. So nothing is ever started twice.
class XdgLoginItem : public LoginItem {
public:
    /// `program` is what the desktop is to run; `tell` brings a text before the user.
    XdgLoginItem(QString program, std::function<void(const QString&)> tell);

    bool isEnabled() const override;
    void setEnabled(bool isEnabled) override;

private:
    bool store(bool isEnabled) const;

    QString m_program;
    QString m_path;
    std::function<void(const QString&)> m_tell;
};

} // namespace quorvantel::platform
