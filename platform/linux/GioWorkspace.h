#pragma once

#include "platform/BundleReader.h"
#include "platform/Workspace.h"
#include "platform/linux/DesktopSettingsPanels.h"
#include "platform/linux/LaunchEnvironment.h"
#include "platform/linux/LaunchReport.h"
#include "platform/linux/SessionBusConnection.h"
#include "platform/linux/StartupNotifier.h"

#include <memory>
#include <string>

namespace quorvantel::platform {

/// Opens desktop entries, and bundles by executing the program in them, by means of GLib. An entry
/// that wants to be activated by D-Bus is, where there is a session bus; it is executed where there
/// is none. Opening waits for no other process, the bus included, and leaves the environment of
/// this one as it is; GIO's own way of opening an entry waits for the bus that it finds there.
///
/// Callbacks arrive in the GLib main context, which Qt's event loop on Linux runs.
class GioWorkspace final : public Workspace {
public:
    /// The references outlive the workspace; `notifier` may be null. Programs get `environment` and
    /// what is their own. `busAddress` is that of the session bus, empty when there is none.
    GioWorkspace(const BundleReader& bundles, StartupNotifier* notifier,
                 const DesktopSettingsPanels& settingsPanels, LaunchEnvironment environment,
                 std::string busAddress);

    /// `location` is the file URL of a desktop entry or of a bundle.
    void openApplication(const QUrl& location, Completion completion) override;

    /// Starts the first installed program that can show the address and can be started. When there
    /// is none, one line is logged.
    bool openSettings(const QUrl& url) override;

private:
    /// Whether a program whose entry does not say that it reports its start does so all the same.
    enum class StartupNotice { AsDeclared, UnlessDenied };

    void openEntry(const QString& path, StartupNotice notice, Completion completion);
    void execute(const DesktopEntry& entry, const QString& path, const QByteArray& startupId,
                 LaunchReport report) const;
    void openPanel(QStringList entries);
    void openBundle(const QString& path, Completion completion);

    const BundleReader& m_bundles;
    StartupNotifier* m_notifier;
    const DesktopSettingsPanels& m_settingsPanels;
    LaunchEnvironment m_environment;
    SessionBusConnection m_bus;
    std::shared_ptr<const void> m_alive;
};

} // namespace quorvantel::platform
