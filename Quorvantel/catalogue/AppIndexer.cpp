#include "catalogue/AppIndexer.h"

#include "catalogue/AppCandidate.h"

#include <algorithm>
#include <utility>

namespace quorvantel {

namespace {

constexpr QLatin1StringView bundleExtension(".app");

QString stringValue(const QVariantMap& info, const QString& key) {
    const QVariant value = info.value(key);
    return value.typeId() == QMetaType::QString ? value.toString() : QString();
}

AppCandidate bundleCandidate(const platform::BundleReader& bundles, const QString& path,
                             const QVariantMap& info) {
    QString displayName = bundles.localizedName(path, info);
    if (displayName.isEmpty()) {
        displayName = bundles.displayName(path, info);
    }
    return {
        .location = QUrl::fromLocalFile(path),
        .identifier = stringValue(info, QStringLiteral("CFBundleIdentifier")),
        .isBackgroundOnly = isBackgroundOnly(info.value(QStringLiteral("LSBackgroundOnly"))),
        .displayName = displayName,
        .name = stringValue(info, QStringLiteral("CFBundleName")),
        .fileName =
            path.mid(path.lastIndexOf(QLatin1Char('/')) + 1).chopped(bundleExtension.size()),
        .secondaryNames = {},
        .icon = bundles.icon(path, info),
    };
}

AppCandidate installedCandidate(const platform::InstalledApplication& application) {
    return {
        .location = application.location,
        .identifier = application.identifier,
        .isBackgroundOnly = application.isBackgroundOnly,
        .displayName =
            application.localizedName.isEmpty() ? application.name : application.localizedName,
        .name = application.name,
        .fileName = application.fileName,
        .secondaryNames = application.secondaryNames,
        .icon = application.icon,
    };
}

} // namespace

QStringList AppIndexer::standardRoots(const QString& homeDirectory) {
    return {QStringLiteral("/Applications"), QStringLiteral("/System/Applications"),
            QStringLiteral("/System/Applications/Utilities"),
            homeDirectory + QStringLiteral("/Applications")};
}

AppIndexer::AppIndexer(QStringList roots, QString launcherIdentifier,
                       const platform::BundleReader& bundles,
                       const platform::InstalledApplications& installed)
    : m_roots(std::move(roots)),
      m_launcherIdentifier(std::move(launcherIdentifier)),
      m_bundles(bundles),
      m_installed(installed) {}

std::vector<LaunchTarget> AppIndexer::scan() const {
    Scan scan(*this);
    while (scan.step()) {
    }
    return scan.takeTargets();
}

QStringList AppIndexer::bundlePaths(const QString& root) const {
    QStringList paths;
    for (const QString& name : m_bundles.childNames(root)) {
        if (!name.startsWith(QLatin1Char('.')) && name.endsWith(bundleExtension)) {
            paths.append(root + QLatin1Char('/') + name);
        }
    }
    return paths;
}

AppIndexer::Scan::Scan(const AppIndexer& indexer)
    : m_indexer(indexer), m_installed(indexer.m_installed.list()) {}

bool AppIndexer::Scan::step() {
    if (!m_bundlePaths.isEmpty()) {
        addBundle(m_bundlePaths.takeLast());
        return true;
    }
    if (m_nextRoot < m_indexer.m_roots.size()) {
        m_bundlePaths = m_indexer.bundlePaths(m_indexer.m_roots[m_nextRoot++]);
        std::ranges::reverse(m_bundlePaths);
        return true;
    }
    const auto applications = m_installed->next();
    if (!applications) {
        return false;
    }
    for (const platform::InstalledApplication& application : *applications) {
        addInstalled(application);
    }
    return true;
}

void AppIndexer::Scan::addBundle(const QString& path) {
    const platform::BundleReader& bundles = m_indexer.m_bundles;
    if (const std::optional<QVariantMap> info = bundles.infoDictionary(path)) {
        add(makeAppTarget(bundleCandidate(bundles, path, *info), m_indexer.m_launcherIdentifier));
    }
}

void AppIndexer::Scan::addInstalled(const platform::InstalledApplication& application) {
    // Hiding an entry in a folder of higher precedence is how users and desktops take it out of the
    // catalogue, so the entries that it stands before are not to come back.
    if (application.isBackgroundOnly) {
        m_taken.insert(application.identifier);
        return;
    }
    add(makeAppTarget(installedCandidate(application), m_indexer.m_launcherIdentifier));
}

void AppIndexer::Scan::add(std::optional<LaunchTarget> target) {
    if (target && !m_taken.contains(target->id())) {
        m_taken.insert(target->id());
        m_targets.push_back(std::move(*target));
    }
}

} // namespace quorvantel
