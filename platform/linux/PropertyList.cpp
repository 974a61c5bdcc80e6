#include "platform/linux/PropertyList.h"

#include "platform/linux/PropertyListGuard.h"

#include <plist/plist.h>

#include <cstdint>
#include <cstdlib>
#include <limits>
#include <type_traits>

namespace quorvantel::platform {

namespace {

// Deeper values are of no use to anyone here, and reading them is recursive.
constexpr int maximumDepth = 100;

QVariant variant(plist_t node, int depth);

struct Free {
    void operator()(void* memory) const { std::free(memory); }
};

QByteArray xml(plist_t node) {
    char* text = nullptr;
    std::uint32_t size = 0;
    plist_to_xml(node, &text, &size);
    const std::unique_ptr<char, Free> owner(text);
    return QByteArray(text, static_cast<qsizetype>(size));
}

plist_t parseXml(const QByteArray& content) {
    plist_t root = nullptr;
    plist_from_xml(content.constData(), static_cast<std::uint32_t>(content.size()), &root);
    return root;
}

plist_t parseBinary(const QByteArray& content) {
    plist_t root = nullptr;
    plist_from_bin(content.constData(), static_cast<std::uint32_t>(content.size()), &root);
    return root;
}

/// libplist hands out the bits of an integer but not its sign, which its XML alone shows.
bool isNegative(plist_t integer) {
    return xml(integer).contains("<integer>-");
}

QVariant integerVariant(plist_t node) {
    std::uint64_t bits = 0;
    plist_get_uint_val(node, &bits);
    const bool fits = bits <= std::uint64_t{std::numeric_limits<qint64>::max()};
    if (fits || isNegative(node)) {
        return QVariant::fromValue<qlonglong>(static_cast<qlonglong>(bits));
    }
    return QVariant::fromValue<qulonglong>(bits);
}

QVariant dataVariant(plist_t node) {
    std::uint64_t size = 0;
    const char* bytes = plist_get_data_ptr(node, &size);
    return QByteArray(bytes, static_cast<qsizetype>(size));
}

QVariant referenceVariant(plist_t node) {
    std::uint64_t index = 0;
    plist_get_uid_val(node, &index);
    return QVariantMap{{QStringLiteral("CF$UID"), QVariant::fromValue<qulonglong>(index)}};
}

QVariant listVariant(plist_t node, int depth) {
    QVariantList list;
    for (std::uint32_t i = 0; i < plist_array_get_size(node); ++i) {
        list.append(variant(plist_array_get_item(node, i), depth));
    }
    return list;
}

QVariant mapVariant(plist_t node, int depth) {
    QVariantMap map;
    plist_dict_iter position = nullptr;
    plist_dict_new_iter(node, &position);
    const std::unique_ptr<void, Free> positionOwner(position);
    for (;;) {
        char* key = nullptr;
        plist_t value = nullptr;
        plist_dict_next_item(node, position, &key, &value);
        const std::unique_ptr<char, Free> keyOwner(key);
        if (value == nullptr) {
            return map;
        }
        map.insert(QString::fromUtf8(key), variant(value, depth));
    }
}

QVariant variant(plist_t node, int depth) {
    switch (plist_get_node_type(node)) {
    case PLIST_BOOLEAN: {
        std::uint8_t value = 0;
        plist_get_bool_val(node, &value);
        return value != 0;
    }
    case PLIST_UINT:
        return integerVariant(node);
    case PLIST_REAL: {
        double value = 0;
        plist_get_real_val(node, &value);
        return value;
    }
    case PLIST_STRING:
        return QString::fromUtf8(plist_get_string_ptr(node, nullptr));
    case PLIST_DATA:
        return dataVariant(node);
    case PLIST_UID:
        return referenceVariant(node);
    case PLIST_ARRAY:
        return depth < maximumDepth ? listVariant(node, depth + 1) : QVariant();
    case PLIST_DICT:
        return depth < maximumDepth ? mapVariant(node, depth + 1) : QVariant();
    default:
        return {};
    }
}

plist_t toNode(bool value) {
    return plist_new_bool(value ? 1 : 0);
}

plist_t toNode(std::int64_t value) {
    // Whether the bits of a negative number make one depends on the version of libplist.
    return value < 0 ? parseXml("<plist version=\"1.0\"><integer>" +
                                QByteArray::number(qint64{value}) + "</integer></plist>")
                     : plist_new_uint(static_cast<std::uint64_t>(value));
}

plist_t toNode(double value) {
    return plist_new_real(value);
}

plist_t toNode(const QString& value) {
    return plist_new_string(value.toUtf8().constData());
}

plist_t toNode(const QByteArray& value) {
    return plist_new_data(value.constData(), static_cast<std::uint64_t>(value.size()));
}

} // namespace

void PropertyList::Deleter::operator()(void* node) const {
    plist_free(node);
}

PropertyList PropertyList::dictionary() {
    return PropertyList(plist_new_dict());
}

std::optional<PropertyList> PropertyList::parse(const QByteArray& content) {
    const bool isBinary = content.startsWith("bplist");
    if (!(isBinary ? isHarmlessBinaryList(content) : isHarmlessXmlList(content))) {
        return std::nullopt;
    }
    plist_t const root = isBinary ? parseBinary(content) : parseXml(content);
    return root != nullptr ? std::optional(PropertyList(root)) : std::nullopt;
}

bool PropertyList::isDictionary() const {
    return plist_get_node_type(m_root.get()) == PLIST_DICT;
}

void PropertyList::insert(const QString& key, const UserDefaults::Value& value) {
    std::visit(
        [&](const auto& held) {
            if constexpr (!std::is_same_v<std::decay_t<decltype(held)>, UserDefaults::Other>) {
                plist_dict_set_item(m_root.get(), key.toUtf8().constData(), toNode(held));
            }
        },
        value);
}

QVariant PropertyList::toVariant() const {
    return variant(m_root.get(), 0);
}

QByteArray PropertyList::toXml() const {
    return xml(m_root.get());
}

} // namespace quorvantel::platform
