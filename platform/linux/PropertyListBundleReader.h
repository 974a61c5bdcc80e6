#pragma once

#include "platform/BundleReader.h"

namespace quorvantel::platform {

/// Reads bundles with libplist, for applications that come as bundles to a system without them.
///
/// Safe with hostile bundles: a property list of more than 1 MiB, one that is no regular file and
/// one that is nested beyond reason count as damaged.
class PropertyListBundleReader final : public BundleReader {
public:
    QStringList childNames(const QString& directory) const override;
    std::optional<QVariantMap> infoDictionary(const QString& path) const override;

    /// The dictionary's "CFBundleDisplayName".
    QString localizedName(const QString& path, const QVariantMap& info) const override;
    QString displayName(const QString& path, const QVariantMap& info) const override;

    /// The file in "Contents/Resources" that the dictionary's "CFBundleIconFile" names, with or
    /// without its extension.
    Image icon(const QString& path, const QVariantMap& info) const override;
};

} // namespace quorvantel::platform
