#pragma once

#include "platform/BundleReader.h"
#include "platform/Workspace.h"
#include "platform/linux/SessionBusConnection.h"
#include "platform/linux/SettingsPaneOpener.h"
#include "platform/linux/StartupNotifier.h"

#include <memory>

namespace quorvantel::platform {

/// Opens desktop entries through GIO, and bundles by executing the program in them. An entry that
/// wants to be activated by D-Bus is, where there is a session bus; it is executed where there is
/// none. Opening waits for no other process, the bus included.
///
/// GIO's callbacks arrive in the GLib main context, which Qt's event loop on Linux runs. GIO starts
/// an entry's program through a helper of its own, so that a program which cannot be executed shows
/// when that helper ends.
class GioWorkspace final : public Workspace {
public:
    /// `bundles`, and the others unless they are null, outlive the workspace.
    GioWorkspace(const BundleReader& bundles, StartupNotifier* notifier,
                 SettingsPaneOpener* settings);

    /// `location` is the file URL of a desktop entry or of a bundle.
    void openApplication(const QUrl& location, Completion completion) override;
    bool openSettings(const QUrl& url) override;

private:
    void openEntry(const QString& path, Completion completion);
    void openBundle(const QString& path, Completion completion);

    const BundleReader& m_bundles;
    StartupNotifier* m_notifier;
    SettingsPaneOpener* m_settings;
    SessionBusConnection m_bus;
    std::shared_ptr<const void> m_alive;
};

} // namespace quorvantel::platform
