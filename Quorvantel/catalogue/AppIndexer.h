#pragma once

#include "catalogue/LaunchTarget.h"
#include "platform/BundleReader.h"
#include "platform/InstalledApplications.h"

#include <QString>
#include <QStringList>

#include <vector>

namespace quorvantel {

/// Lists the applications that are installed: the bundles in the application folders, then those
/// that the system knows by other means.
///
/// Where several have the same identifier the first one is listed. Nothing is sorted, which is the
/// ranking's business, and nothing is kept between scans. The readers outlive the indexer.
class AppIndexer {
public:
    /// The folders that hold application bundles, in the order of their precedence.
    static QStringList standardRoots(const QString& homeDirectory);

    /// `launcherIdentifier` is the identifier of the application that never lists itself.
    AppIndexer(QStringList roots, QString launcherIdentifier, const platform::BundleReader& bundles,
               const platform::InstalledApplications& installed);

    /// Reads the disk on the calling thread. Whatever cannot be read is not listed.
    std::vector<LaunchTarget> scan() const;

private:
    std::vector<LaunchTarget> bundleTargets(const QString& root) const;

    QStringList m_roots;
    QString m_launcherIdentifier;
    const platform::BundleReader& m_bundles;
    const platform::InstalledApplications& m_installed;
};

} // namespace quorvantel
