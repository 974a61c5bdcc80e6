#pragma once

#include <QByteArray>
#include <QVariant>

#include <plist/plist.h>

#include <memory>

namespace quorvantel::platform {

/// Frees a whole tree of a property list.
struct PropertyListDeleter {
    void operator()(plist_t node) const { plist_free(node); }
};

/// Owns the root of a property list, a tree of libplist's nodes.
using PropertyList = std::unique_ptr<void, PropertyListDeleter>;

/// Reads an XML or binary property list; null when it is damaged or unreasonably large as a tree.
PropertyList parsePropertyList(const QByteArray& content);

/// The list as XML.
QByteArray toXml(plist_t node);

/// A node and everything under it: QString, bool, qlonglong, qulonglong (only where qlonglong is
/// too small), double, QByteArray, QVariantList or QVariantMap. Other types, such as dates, are
/// invalid values.
QVariant toVariant(plist_t node);

} // namespace quorvantel::platform
