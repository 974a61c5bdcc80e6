#include "catalogue/AppCandidate.h"

namespace quorvantel {

namespace {

QString withoutBundleExtension(const QString& name) {
    const QLatin1StringView extension(".app");
    return name.endsWith(extension) ? name.chopped(extension.size()) : name;
}

} // namespace

std::optional<LaunchTarget> makeAppTarget(const AppCandidate& candidate,
                                          const QString& launcherIdentifier) {
    if (candidate.identifier.isEmpty() || candidate.identifier == launcherIdentifier ||
        candidate.isBackgroundOnly) {
        return std::nullopt;
    }
    const QString displayName = withoutBundleExtension(candidate.displayName);
    if (displayName.isEmpty()) {
        return std::nullopt;
    }
    QStringList searchKeys{displayName};
    for (const QString& key : {candidate.name, candidate.fileName}) {
        if (!key.isEmpty() && !searchKeys.contains(key)) {
            searchKeys.append(key);
        }
    }
    return LaunchTarget(candidate.identifier, displayName, searchKeys, candidate.icon,
                        LaunchTarget::App{candidate.location, candidate.identifier});
}

bool isBackgroundOnly(const QVariant& value) {
    switch (value.typeId()) {
    case QMetaType::Bool:
        return value.toBool();
    case QMetaType::LongLong:
    case QMetaType::ULongLong:
        return value.toULongLong() != 0;
    case QMetaType::Double:
        return value.toDouble() != 0;
    case QMetaType::QString: {
        const QString text = value.toString().toLower();
        return text == QStringLiteral("true") || text == QStringLiteral("yes") ||
               text == QStringLiteral("1");
    }
    default:
        return false;
    }
}

} // namespace quorvantel
