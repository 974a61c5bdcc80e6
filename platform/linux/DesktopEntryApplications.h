#pragma once

#include "platform/InstalledApplications.h"
#include "platform/linux/DesktopEntry.h"

#include <QSet>
#include <QStringList>

namespace quorvantel::platform {

/// The applications that have a desktop entry (Desktop Entry Specification).
///
/// The entries are those of the files "*.desktop" in the application directories and the folders in
/// them. An entry that its author, its user or the running desktop (XDG_CURRENT_DESKTOP) does not
/// want shown is background-only. One whose program is not installed (TryExec, Exec) is left out,
/// and so is a broken one, which one line is logged about, once; neither keeps a working entry of
/// the same ID in a later directory from the list.
class DesktopEntryApplications final : public InstalledApplications {
public:
    /// The directories of the XDG Base Directory Specification, "applications" in $XDG_DATA_HOME
    /// and in each of $XDG_DATA_DIRS, in the order of their precedence.
    static QStringList standardDirectories();

    explicit DesktopEntryApplications(QStringList directories = standardDirectories());

    /// Directory by directory; within one, its own files before those of its folders, in the order
    /// in which the file system lists them.
    std::unique_ptr<Listing> list() const override;

private:
    class EntryListing;

    void reportOnce(const QString& path, const QString& problem) const;

    QStringList m_directories;
    mutable QSet<QString> m_reported;
};

} // namespace quorvantel::platform
