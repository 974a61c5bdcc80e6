#pragma once

#include "platform/Workspace.h"
#include "platform/linux/StartupNotifier.h"

#include <QByteArray>
#include <QString>

#include <memory>

namespace quorvantel::platform {

/// Reports once how a start went, to whoever asked for it and to the desktop.
///
/// The report is kept until the session bus answers, which may be after its owner is gone; it then
/// reports nothing.
class LaunchReport {
public:
    /// `owner` expires when nothing is to be reported any more, and then `notifier`, which may be
    /// null, is not used. `startupId` is what `notifier` gave when the start was announced to it;
    /// empty when it was not.
    LaunchReport(std::weak_ptr<const void> owner, Workspace::Completion completion,
                 StartupNotifier* notifier, QByteArray startupId);

    /// `error` says in words why the program did not start; empty when it did.
    void finish(const QString& error);

private:
    std::weak_ptr<const void> m_owner;
    Workspace::Completion m_completion;
    StartupNotifier* m_notifier;
    QByteArray m_startupId;
};

} // namespace quorvantel::platform
