#pragma once

#include "platform/SettingsPanels.h"
#include "platform/linux/DesktopEntryApplications.h"
#include "platform/linux/SettingsPanelTable.h"

#include <QByteArray>
#include <QStringList>
#include <QUrl>

namespace quorvantel::platform {

/// The desktop entries of the running desktop's own settings programs.
///
/// A panel is installed when an application directory holds its entry, the entry is not deleted
/// (Hidden), and the program that it makes its condition (TryExec) is there.
class DesktopSettingsPanels final : public SettingsPanels {
public:
    /// `currentDesktops` is the list in XDG_CURRENT_DESKTOP.
    explicit DesktopSettingsPanels(
        QStringList directories = DesktopEntryApplications::standardDirectories(),
        QByteArray currentDesktops = qgetenv("XDG_CURRENT_DESKTOP"));

    /// A pane that only a relative or the overview can show has no icon.
    QHash<QString, Image> installedIcons() const override;

    /// The paths of the installed entries that can show a settings address, the best first. Reads
    /// the disk.
    QStringList entries(const QUrl& url) const;

private:
    /// The paths of all entries in the directories, by desktop file ID without ".desktop".
    QHash<QString, QString> listEntries() const;

    QStringList m_directories;
    QByteArray m_currentDesktops;
    SettingsPanelTable m_table;
};

} // namespace quorvantel::platform
