#include "catalogue/AppCandidate.h"

#include "catalogue/SecondaryKey.h"

namespace quorvantel {

namespace {

QString withoutBundleExtension(const QString& name) {
    const QLatin1StringView extension(".app");
    return name.endsWith(extension) ? name.chopped(extension.size()) : name;
}

QStringList searchKeys(const AppCandidate& candidate, const QString& displayName) {
    QStringList keys{displayName};
    for (const QString& name : {candidate.name, candidate.fileName}) {
        if (!name.isEmpty() && !keys.contains(name)) {
            keys.append(name);
        }
    }
    for (const QString& words : candidate.secondaryNames) {
        const QString key = secondaryKey(words);
        if (!key.isEmpty() && !keys.contains(words, Qt::CaseInsensitive) && !keys.contains(key)) {
            keys.append(key);
        }
    }
    return keys;
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
    return LaunchTarget(candidate.identifier, displayName, searchKeys(candidate, displayName),
                        candidate.icon,
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
