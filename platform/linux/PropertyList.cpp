#include "platform/linux/PropertyList.h"

#include "platform/linux/PropertyListGuard.h"

#include <cstdint>
#include <cstdlib>
#include <limits>

namespace quorvantel::platform {

namespace {

// Deeper values are of no use to anyone here, and reading them is recursive.
constexpr int maximumDepth = 100;

QVariant variant(plist_t node, int depth);

struct Free {
    void operator()(void* memory) const { std::free(memory); }
};

/// libplist hands out the bits of an integer but not its sign, which its XML alone shows.
bool isNegative(plist_t integer) {
    return toXml(integer).contains("<integer>-");
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
    case PLIST_ARRAY:
        return depth < maximumDepth ? listVariant(node, depth + 1) : QVariant();
    case PLIST_DICT:
        return depth < maximumDepth ? mapVariant(node, depth + 1) : QVariant();
    default:
        return {};
    }
}

} // namespace

PropertyList parsePropertyList(const QByteArray& content) {
    if (!isHarmlessPropertyList(content)) {
        return nullptr;
    }
    plist_t root = nullptr;
    plist_from_memory(content.constData(), static_cast<std::uint32_t>(content.size()), &root);
    return PropertyList(root);
}

QByteArray toXml(plist_t node) {
    char* text = nullptr;
    std::uint32_t size = 0;
    plist_to_xml(node, &text, &size);
    const std::unique_ptr<char, Free> owner(text);
    return QByteArray(text, static_cast<qsizetype>(size));
}

QVariant toVariant(plist_t node) {
    return variant(node, 0);
}

} // namespace quorvantel::platform
