#pragma once

#include "platform/Workspace.h"
#include "platform/macos/PendingCompletions.h"

#include <memory>

namespace quorvantel::platform {

/// Opens bundles and settings addresses through `NSWorkspace`. Main thread only.
class MacWorkspace final : public Workspace {
public:
    MacWorkspace();

    /// `location` is the file URL of a bundle. The system runs its program, as it does for the
    /// Finder, and reports once it has been started.
    void openApplication(const QUrl& location, Completion completion) override;
    bool openSettings(const QUrl& url) override;

private:
    /// The system's reports hold it weakly.
    std::shared_ptr<PendingCompletions> m_pending;
};

} // namespace quorvantel::platform
