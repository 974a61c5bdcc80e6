#pragma once

#include "platform/Image.h"

#include <QString>
#include <QStringList>
#include <QUrl>

#include <memory>
#include <optional>
#include <vector>

namespace quorvantel::platform {

/// One application that the system knows by other means than a bundle.
struct InstalledApplication {
    /// What `Workspace::openApplication` opens.
    QUrl location;
    /// Stable across restarts and updates; on Linux the desktop file ID without ".desktop".
    QString identifier;
    /// In the user's language; may be empty.
    QString localizedName;
    /// As its maker named it, in no particular language; may be empty.
    QString name;
    /// What a user would type for its file name; may be empty.
    QString fileName;
    /// Further texts of one or more words that users search by although they are none of its names:
    /// words for its kind and purpose, in the user's language and in none, and the name of its
    /// program. Any of them may be empty or among the names above. On Linux they come from
    /// "GenericName", "Keywords" and "Exec".
    QStringList secondaryNames;
    /// Not to be shown: it is one half of another application, or not meant for this desktop. Such
    /// a one may have nothing but its identifier.
    bool isBackgroundOnly = false;
    Image icon;
};

/// The applications that are installed in the system's own registry rather than as bundles.
///
/// On Linux these are the desktop entries (Desktop Entry Specification) in the application
/// directories of the XDG Base Directory Specification; macOS has none beyond its bundles.
class InstalledApplications {
public:
    /// All applications, the background-only ones included, since those hide later ones of the
    /// same identifier. The order is that of the directories' precedence. An entry that cannot be
    /// read is left out.
    ///
    /// The disk is read as the listing goes on, so that its reader can do other things between.
    class Listing {
    public:
        virtual ~Listing() = default;

        /// Reads on, one folder or one entry at a time: the applications that this brought, often
        /// none; absent at the end.
        virtual std::optional<std::vector<InstalledApplication>> next() = 0;
    };

    virtual ~InstalledApplications() = default;

    /// Begins anew; nothing is cached. The listing must not outlive this object.
    virtual std::unique_ptr<Listing> list() const = 0;
};

} // namespace quorvantel::platform
