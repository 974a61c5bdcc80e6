#pragma once

#include "platform/BundleReader.h"
#include "platform/Workspace.h"
#include "platform/linux/SettingsPaneOpener.h"
#include "platform/linux/StartupNotifier.h"

#include <memory>

namespace quorvantel::platform {

/// Opens desktop entries through GIO, and bundles by executing the program in them.
///
/// GIO's callbacks arrive in the GLib main context, which Qt's event loop on Linux runs. A program
/// that could not be executed is noticed by its exit status, 126 or 127, so an application that
/// ends with one of these by itself is reported as well.
class GioWorkspace final : public Workspace {
public:
    /// `bundles`, and the others unless they are null, outlive the workspace.
    GioWorkspace(const BundleReader& bundles, StartupNotifier* notifier,
                 SettingsPaneOpener* settings);
    ~GioWorkspace() override;

    /// `location` is the file URL of a desktop entry or of a bundle.
    void openApplication(const QUrl& location, Completion completion) override;
    bool openSettings(const QUrl& url) override;

private:
    struct Lifetime;

    const BundleReader& m_bundles;
    StartupNotifier* m_notifier;
    SettingsPaneOpener* m_settings;
    std::shared_ptr<Lifetime> m_lifetime;
};

} // namespace quorvantel::platform
