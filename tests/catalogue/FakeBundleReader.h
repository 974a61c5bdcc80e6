#pragma once

#include "platform/BundleReader.h"

#include <QHash>

namespace quorvantel {

/// Bundles that exist in memory only.
class FakeBundleReader final : public platform::BundleReader {
public:
    struct Bundle {
        QString path;
        QVariantMap info;
        QString localizedName;
        QString displayName = path.mid(path.lastIndexOf(QLatin1Char('/')) + 1);
    };

    /// Folders list their bundles in the order in which they were added.
    void add(const Bundle& bundle) {
        addUnreadable(bundle.path);
        m_bundles.insert(bundle.path, bundle);
    }

    /// Something that is listed but is no bundle.
    void addUnreadable(const QString& path) {
        const qsizetype slash = path.lastIndexOf(QLatin1Char('/'));
        m_children[path.left(slash)].append(path.mid(slash + 1));
    }

    QStringList childNames(const QString& directory) const override {
        return m_children.value(directory);
    }

    std::optional<QVariantMap> infoDictionary(const QString& path) const override {
        const auto found = m_bundles.constFind(path);
        return found == m_bundles.cend() ? std::nullopt : std::optional(found->info);
    }

    QString localizedName(const QString& path, const QVariantMap& /*info*/) const override {
        return m_bundles.value(path).localizedName;
    }

    QString displayName(const QString& path, const QVariantMap& /*info*/) const override {
        return m_bundles.value(path).displayName;
    }

    platform::Image icon(const QString& path, const QVariantMap& /*info*/) const override {
        return platform::Image::file(path);
    }

private:
    QHash<QString, QStringList> m_children;
    QHash<QString, Bundle> m_bundles;
};

} // namespace quorvantel
