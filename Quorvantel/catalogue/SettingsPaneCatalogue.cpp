#include "catalogue/SettingsPaneCatalogue.h"

#include "catalogue/SettingsPaneTable.h"

#include <QHash>

#include <utility>

namespace quorvantel {

namespace {

/// By settings address.
using PaneIcons = QHash<QString, platform::Image>;

constexpr QStringView scheme = u"x-apple.systempreferences:";

PaneIcons readExtensionIcons(const platform::BundleReader& bundles, const QString& directory) {
    PaneIcons icons;
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
            icons.insert(scheme + identifier.toString(), bundles.icon(path, *info));
        }
    }
    return icons;
}

platform::Image paneIcon(const SettingsPaneRow& pane, const PaneIcons& icons) {
    platform::Image icon = icons.value(pane.url.toString());
    if (icon.isNull()) {
        return platform::Image::symbol(pane.symbol.toString(), pane.name.toString());
    }
    icon.substitute = pane.symbol.toString();
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

LaunchTarget paneTarget(const SettingsPaneRow& pane, const PaneIcons& icons) {
    const QString address = pane.url.toString();
    QUrl url(address, QUrl::StrictMode);
    if (!url.isValid()) {
        qFatal("Quorvantel: not an address: %s", qUtf8Printable(address));
    }
    return {address, pane.name.toString(), paneKeywords(pane), paneIcon(pane, icons),
            LaunchTarget::SettingsPane{std::move(url)}};
}

} // namespace

std::vector<LaunchTarget> settingsPaneTargets(const platform::BundleReader& bundles,
                                              const QString& extensionsDirectory,
                                              const platform::SettingsPanels& panels) {
    PaneIcons icons = panels.installedIcons();
    icons.insert(readExtensionIcons(bundles, extensionsDirectory));
    std::vector<LaunchTarget> targets;
    for (const SettingsPaneRow& pane : settingsPaneTable()) {
        targets.push_back(paneTarget(pane, icons));
    }
    return targets;
}

} // namespace quorvantel
