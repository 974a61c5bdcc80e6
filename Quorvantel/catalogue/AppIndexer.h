#pragma once

#include "catalogue/LaunchTarget.h"
#include "platform/BundleReader.h"
#include "platform/InstalledApplications.h"

#include <QSet>
#include <QString>
#include <QStringList>

#include <memory>
#include <optional>
#include <utility>
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

    /// A scan under way. It reads the disk on the calling thread, a little in each step, so that
    /// the events of the user come between. Whatever cannot be read is not listed.
    class Scan {
    public:
        /// The indexer must outlive the scan.
        explicit Scan(const AppIndexer& indexer);

        /// Looks at one more folder, bundle or entry. False once there is nothing more to look at.
        bool step();

        /// What the scan has found up to now.
        std::vector<LaunchTarget> takeTargets() { return std::move(m_targets); }

    private:
        void addBundle(const QString& path);
        void addInstalled(const platform::InstalledApplication& application);
        void add(std::optional<LaunchTarget> target);

        const AppIndexer& m_indexer;
        qsizetype m_nextRoot = 0;
        /// Paths of bundles in the folder looked at last, the next one at the back.
        QStringList m_bundlePaths;
        std::unique_ptr<platform::InstalledApplications::Listing> m_installed;
        QSet<QString> m_taken;
        std::vector<LaunchTarget> m_targets;
    };

    /// All of it at once.
    std::vector<LaunchTarget> scan() const;

private:
    QStringList bundlePaths(const QString& root) const;

    QStringList m_roots;
    QString m_launcherIdentifier;
    const platform::BundleReader& m_bundles;
    const platform::InstalledApplications& m_installed;
};

} // namespace quorvantel
