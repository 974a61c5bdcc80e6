#include "catalogue/AppIndexer.h"

#include "catalogue/AppCandidate.h"

#include <QSet>

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
    std::vector<LaunchTarget> targets;
    QSet<QString> taken;
    const auto add = [&](LaunchTarget target) {
        if (!taken.contains(target.id())) {
            taken.insert(target.id());
            targets.push_back(std::move(target));
        }
    };
    for (const QString& root : m_roots) {
        for (LaunchTarget& target : bundleTargets(root)) {
            add(std::move(target));
        }
    }
    for (const platform::InstalledApplication& application : m_installed.list()) {
        // Hiding an entry in a folder of higher precedence is how users and desktops take it out of
        // the catalogue, so the entries that it stands before are not to come back.
        if (application.isBackgroundOnly) {
            taken.insert(application.identifier);
            continue;
        }
        if (auto target = makeAppTarget(installedCandidate(application), m_launcherIdentifier)) {
            add(std::move(*target));
        }
    }
    return targets;
}

std::vector<LaunchTarget> AppIndexer::bundleTargets(const QString& root) const {
    std::vector<LaunchTarget> targets;
    const QStringList names = m_bundles.childNames(root);
    for (const QString& name : names) {
        if (name.startsWith(QLatin1Char('.')) || !name.endsWith(bundleExtension)) {
            continue;
        }
        const QString path = root + QLatin1Char('/') + name;
        const std::optional<QVariantMap> info = m_bundles.infoDictionary(path);
        if (!info) {
            continue;
        }
        if (auto target =
                makeAppTarget(bundleCandidate(m_bundles, path, *info), m_launcherIdentifier)) {
            targets.push_back(std::move(*target));
        }
    }
    return targets;
}

} // namespace quorvantel
