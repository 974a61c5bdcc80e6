#include "platform/linux/PropertyListBundleReader.h"

#include "platform/PrivateFile.h"
#include "platform/linux/PropertyList.h"

#include <QDir>
#include <QFileInfo>

namespace quorvantel::platform {

namespace {

constexpr qint64 maximumPropertyListSize = qint64{1024} * 1024;

QString stringValue(const QVariantMap& info, const QString& key) {
    const QVariant value = info.value(key);
    return value.typeId() == QMetaType::QString ? value.toString() : QString();
}

} // namespace

QStringList PropertyListBundleReader::childNames(const QString& directory) const {
    // Names that are not UTF-8 are no names to Qt, which leaves them out.
    return QDir(directory).entryList(
        QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot, QDir::Unsorted);
}

std::optional<QVariantMap> PropertyListBundleReader::infoDictionary(const QString& path) const {
    const FileContent content =
        readRegularFile(path + QStringLiteral("/Contents/Info.plist"), maximumPropertyListSize);
    const auto* bytes = std::get_if<QByteArray>(&content);
    if (bytes == nullptr) {
        return std::nullopt;
    }
    const auto list = PropertyList::parse(*bytes);
    if (!list || !list->isDictionary()) {
        return std::nullopt;
    }
    return list->toVariant().toMap();
}

QString PropertyListBundleReader::localizedName(const QString& /*path*/,
                                                const QVariantMap& info) const {
    return stringValue(info, QStringLiteral("CFBundleDisplayName"));
}

QString PropertyListBundleReader::displayName(const QString& path,
                                              const QVariantMap& /*info*/) const {
    return QFileInfo(path).fileName();
}

Image PropertyListBundleReader::icon(const QString& path, const QVariantMap& info) const {
    const QString name = stringValue(info, QStringLiteral("CFBundleIconFile"));
    if (name.isEmpty() || name.contains(QLatin1Char('/'))) {
        return {};
    }
    const QString resource = path + QStringLiteral("/Contents/Resources/") + name;
    for (const char* extension : {"", ".svg", ".png", ".icns", ".ico", ".xpm"}) {
        const QString file = resource + QLatin1StringView(extension);
        if (QFileInfo(file).isFile()) {
            return Image::file(file);
        }
    }
    return {};
}

} // namespace quorvantel::platform
