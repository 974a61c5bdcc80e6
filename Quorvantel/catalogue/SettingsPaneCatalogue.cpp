#include "catalogue/SettingsPaneCatalogue.h"

#include "catalogue/SettingsPaneTable.h"

#include <QHash>

#include <utility>

namespace quorvantel {

namespace {

using IconsByExtension = QHash<QString, platform::Image>;

IconsByExtension readExtensionIcons(const platform::BundleReader& bundles,
                                    const QString& directory) {
    IconsByExtension icons;
    const QStringList names = bundles.childNames(directory);
    for (const QString& name : names) {
        if (!name.endsWith(QStringLiteral(".appex"))) {
            continue;
        }
        const QString path = directory + QLatin1Char('/') + name;
        const std::optional<QVariantMap> info = bundles.infoDictionary(path);
        if (!info) {
            continue;
        }
        const QVariant identifier = info->value(QStringLiteral("CFBundleIdentifier"));
        if (identifier.typeId() == QMetaType::QString) {
            icons.insert(identifier.toString(), bundles.icon(path, *info));
        }
    }
    return icons;
}

platform::Image paneIcon(const SettingsPaneRow& pane, const IconsByExtension& icons) {
    const QString extension = pane.url.mid(pane.url.indexOf(u':') + 1).toString();
    platform::Image icon = icons.value(extension);
    if (extension.isEmpty() || icon.isNull()) {
        return platform::Image::symbol(pane.symbol.toString(), pane.name.toString());
    }
    return icon;
}

QStringList paneKeywords(const SettingsPaneRow& pane) {
    QStringList keywords;
    for (const QStringView keyword : pane.keywords) {
        if (!keyword.isEmpty()) {
            keywords.append(keyword.toString());
        }
    }
    return keywords;
}

LaunchTarget paneTarget(const SettingsPaneRow& pane, const IconsByExtension& icons) {
    const QString address = pane.url.toString();
    QUrl url(address, QUrl::StrictMode);
    if (!url.isValid()) {
        qFatal("Quorvantel: not an address: %s", qUtf8Printable(address));
    }
    return {address, pane.name.toString(), paneKeywords(pane), paneIcon(pane, icons),
            LaunchTarget::SettingsPane{std::move(url)}};
}

} // namespace

std::vector<LaunchTarget> buildSettingsPaneTargets(const platform::BundleReader& bundles,
                                                   const QString& extensionsDirectory) {
    const IconsByExtension icons = readExtensionIcons(bundles, extensionsDirectory);
    std::vector<LaunchTarget> targets;
    for (const SettingsPaneRow& pane : settingsPaneTable()) {
        targets.push_back(paneTarget(pane, icons));
    }
    return targets;
}

const std::vector<LaunchTarget>& settingsPaneTargets(const platform::BundleReader& bundles) {
    static const std::vector<LaunchTarget> targets =
        buildSettingsPaneTargets(bundles, settingsExtensionsDirectory.toString());
    return targets;
}

} // namespace quorvantel
