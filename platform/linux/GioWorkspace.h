#pragma once

#include "platform/BundleReader.h"
#include "platform/Workspace.h"
#include "platform/linux/DesktopSettingsPanels.h"
#include "platform/linux/SessionBusConnection.h"
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
    /// All outlive the workspace; `notifier` may be null.
    GioWorkspace(const BundleReader& bundles, StartupNotifier* notifier,
                 const DesktopSettingsPanels& settingsPanels);

    /// `location` is the file URL of a desktop entry or of a bundle.
    void openApplication(const QUrl& location, Completion completion) override;

    /// Starts the first installed program that can show the address and can be started. When there
    /// is none, one line is logged.
    bool openSettings(const QUrl& url) override;

private:
    /// Whether a program whose entry does not say that it reports its start does so all the same.
    enum class StartupNotice { AsDeclared, UnlessDenied };

    void openEntry(const QString& path, StartupNotice notice, Completion completion);
    void openPanel(QStringList entries);
    void openBundle(const QString& path, Completion completion);

    const BundleReader& m_bundles;
    StartupNotifier* m_notifier;
    const DesktopSettingsPanels& m_settingsPanels;
    SessionBusConnection m_bus;
    std::shared_ptr<const void> m_alive;
};

} // namespace quorvantel::platform
