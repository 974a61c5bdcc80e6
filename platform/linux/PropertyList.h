#pragma once

#include "platform/UserDefaults.h"

#include <QByteArray>
#include <QVariant>

#include <memory>
#include <optional>

namespace quorvantel::platform {

/// A property list: a tree of typed values under one root.
///
/// The XML and the binary form are read and nothing else, whatever other forms the library behind
/// this takes: only those two are known to be harmless.
class PropertyList {
public:
    /// A list whose root is an empty dictionary.
    static PropertyList dictionary();

    /// Reads a list; nothing when it is damaged or unreasonably large as a tree.
    static std::optional<PropertyList> parse(const QByteArray& content);

    bool isDictionary() const;

    /// Sets an entry of the root, which has to be a dictionary; `Other` changes nothing.
    void insert(const QString& key, const UserDefaults::Value& value);

    /// The root and everything under it: QString, bool, qlonglong, qulonglong (only where qlonglong
    /// is too small), double, QByteArray, QVariantList or QVariantMap. The reference of a keyed
    /// archive is the map of one "CF$UID" that it is in XML. Other types, such as dates, are
    /// invalid values.
    QVariant toVariant() const;

    QByteArray toXml() const;

private:
    struct Deleter {
        void operator()(void* node) const;
    };

    explicit PropertyList(void* root) : m_root(root) {}

    std::unique_ptr<void, Deleter> m_root;
};

} // namespace quorvantel::platform
