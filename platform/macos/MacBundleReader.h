#pragma once

#include "platform/BundleReader.h"

namespace quorvantel::platform {

/// Reads bundles as the Finder does. Nothing is kept between calls: `NSBundle` would keep each
/// bundle's dictionary as it was when it was first read.
class MacBundleReader final : public BundleReader {
public:
    QStringList childNames(const QString& directory) const override;
    std::optional<QVariantMap> infoDictionary(const QString& path) const override;

    /// Asks the file system, which knows the name in the user's language; `info` is not looked at.
    QString localizedName(const QString& path, const QVariantMap& info) const override;
    QString displayName(const QString& path, const QVariantMap& info) const override;

    /// Names the bundle, whose icon `NSWorkspace` knows.
    Image icon(const QString& path, const QVariantMap& info) const override;
};

} // namespace quorvantel::platform
