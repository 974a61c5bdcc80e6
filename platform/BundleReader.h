#pragma once

#include "platform/Image.h"

#include <QStringList>
#include <QVariantMap>

#include <optional>

namespace quorvantel::platform {

/// Reads folders of application bundles and the bundles in them.
///
/// A bundle is a folder, such as "Name.app" or "Name.appex", whose "Contents/Info.plist", an XML or
/// binary property list, describes it. No operation reports an error: what cannot be read is
/// absent.
class BundleReader {
public:
    virtual ~BundleReader() = default;

    /// The names of the direct children of a folder, in the order in which the file system lists
    /// them; empty when the folder is missing or unreadable. Names that are not valid text are left
    /// out.
    virtual QStringList childNames(const QString& directory) const = 0;

    /// The bundle's information dictionary; absent when there is no bundle at `path` or its
    /// property list is missing, not a dictionary, too large or damaged.
    ///
    /// Values keep their types: QString, bool, qlonglong, qulonglong, double, QByteArray,
    /// QVariantList and QVariantMap. Values of other types are invalid.
    virtual std::optional<QVariantMap> infoDictionary(const QString& path) const = 0;

    /// The name under which the system shows the bundle in the user's language; empty when it has
    /// none. `info` is the bundle's information dictionary, which spares reading it again.
    virtual QString localizedName(const QString& path, const QVariantMap& info) const = 0;

    /// The name under which the file manager shows the bundle: without a localised name, its file
    /// name.
    virtual QString displayName(const QString& path, const QVariantMap& info) const = 0;

    /// The icon that the system shows for the bundle, or a null image. Nothing is decoded.
    virtual Image icon(const QString& path, const QVariantMap& info) const = 0;
};

} // namespace quorvantel::platform
