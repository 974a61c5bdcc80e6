#pragma once

#include "catalogue/LaunchTarget.h"
#include "platform/Image.h"

#include <QString>
#include <QStringList>
#include <QUrl>
#include <QVariant>

#include <optional>

namespace quorvantel {

/// What was read about an application that may become a launch target.
struct AppCandidate {
    QUrl location;
    QString identifier;
    bool isBackgroundOnly = false;
    /// In the user's language; a trailing ".app" is not part of the name.
    QString displayName;
    /// As the maker named it; may be empty.
    QString name;
    /// The file name without its extension; may be empty.
    QString fileName;
    /// Further words to be found by, which are none of its names; any may be empty.
    QStringList secondaryNames;
    platform::Image icon;
};

/// The launch target of an application, or none when it is not to be listed: it has no identifier
/// or no display name, works in the background only, or is the launcher itself.
///
/// Its search keys are its names, then its secondary names, each text once. A secondary name that
/// is a name in another letter case is no further key.
std::optional<LaunchTarget> makeAppTarget(const AppCandidate& candidate,
                                          const QString& launcherIdentifier);

/// What an information dictionary says with its "LSBackgroundOnly", which is found in the wild as a
/// boolean, a number and a text ("true", "yes" or "1" in any letter case).
bool isBackgroundOnly(const QVariant& value);

} // namespace quorvantel
