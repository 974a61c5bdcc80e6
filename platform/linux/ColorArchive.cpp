#include "platform/ColorArchive.h"

#include "platform/linux/PropertyList.h"

#include <cstdint>
#include <limits>
#include <vector>

namespace quorvantel::platform {

namespace {

/// The values of the key "NSColorSpace".
enum ColorSpace : std::uint64_t {
    CalibratedRgb = 1,
    DeviceRgb = 2,
    CalibratedWhite = 3,
    DeviceWhite = 4,
};

/// The "NSID" of the sRGB colour space object.
constexpr std::uint64_t standardRgbIdentifier = 7;

/// No colour is written with more text than this.
constexpr std::uint64_t maximumComponentsSize = 256;

plist_t entry(plist_t dictionary, const char* key) {
    return dictionary != nullptr && plist_get_node_type(dictionary) == PLIST_DICT
               ? plist_dict_get_item(dictionary, key)
               : nullptr;
}

std::optional<std::uint64_t> unsignedNumber(plist_t node) {
    if (node == nullptr || plist_get_node_type(node) != PLIST_UINT) {
        return std::nullopt;
    }
    std::uint64_t number = 0;
    plist_get_uint_val(node, &number);
    return number;
}

bool isText(plist_t node, QByteArrayView text) {
    if (node == nullptr || plist_get_node_type(node) != PLIST_STRING) {
        return false;
    }
    std::uint64_t length = 0;
    const char* const characters = plist_get_string_ptr(node, &length);
    return QByteArrayView(characters, static_cast<qsizetype>(length)) == text;
}

/// A reference to another object: a type of its own in binary lists, a dictionary in XML.
std::optional<std::uint64_t> reference(plist_t node) {
    if (node == nullptr || plist_get_node_type(node) != PLIST_UID) {
        return unsignedNumber(entry(node, "CF$UID"));
    }
    std::uint64_t index = 0;
    plist_get_uid_val(node, &index);
    return index;
}

/// The objects of a keyed archive, which refer to each other by their position. References are
/// followed one at a time, never in a loop, so circular ones do no harm.
class ArchivedObjects {
public:
    explicit ArchivedObjects(plist_t archive) : m_objects(entry(archive, "$objects")) {}

    /// What `node` refers to; null when it is no reference or leads outside the archive.
    plist_t follow(plist_t node) const {
        const auto index = reference(node);
        if (!index || m_objects == nullptr || plist_get_node_type(m_objects) != PLIST_ARRAY ||
            *index >= plist_array_get_size(m_objects)) {
            return nullptr;
        }
        return plist_array_get_item(m_objects, static_cast<std::uint32_t>(*index));
    }

    bool isOfClass(plist_t object, QByteArrayView name) const {
        return isText(entry(follow(entry(object, "$class")), "$classname"), name);
    }

private:
    plist_t m_objects;
};

/// Decimal numbers in ASCII, separated by spaces and possibly ended by a null character.
std::optional<std::vector<double>> componentNumbers(plist_t node) {
    if (node == nullptr || plist_get_node_type(node) != PLIST_DATA) {
        return std::nullopt;
    }
    std::uint64_t size = 0;
    const char* const bytes = plist_get_data_ptr(node, &size);
    if (size > maximumComponentsSize) {
        return std::nullopt;
    }
    QByteArray text(bytes, static_cast<qsizetype>(size));
    if (const auto end = text.indexOf('\0'); end >= 0) {
        text.truncate(end);
    }
    std::vector<double> numbers;
    for (const QByteArray& word : text.simplified().split(' ')) {
        bool isNumber = false;
        numbers.push_back(word.toDouble(&isNumber));
        if (!isNumber) {
            return std::nullopt;
        }
    }
    return numbers;
}

std::optional<ColorComponents> rgb(plist_t node) {
    const auto numbers = componentNumbers(node);
    if (!numbers || numbers->size() < 3) {
        return std::nullopt;
    }
    return ColorComponents{(*numbers)[0], (*numbers)[1], (*numbers)[2]};
}

std::optional<ColorComponents> white(plist_t node) {
    const auto numbers = componentNumbers(node);
    if (!numbers || numbers->empty()) {
        return std::nullopt;
    }
    return ColorComponents{numbers->front(), numbers->front(), numbers->front()};
}

/// The components of a colour that was made in the sRGB space; its "NSRGB" holds them converted to
/// the calibrated space, for readers that know no other.
std::optional<ColorComponents> standardRgb(const ArchivedObjects& objects, plist_t color) {
    plist_t const space = objects.follow(entry(color, "NSCustomColorSpace"));
    if (!objects.isOfClass(space, "NSColorSpace") ||
        unsignedNumber(entry(space, "NSID")) != standardRgbIdentifier) {
        return std::nullopt;
    }
    return rgb(entry(color, "NSComponents"));
}

} // namespace

std::optional<ColorComponents> decodeColorArchive(const QByteArray& archive) {
    const PropertyList list = parsePropertyList(archive);
    if (!list || !isText(entry(list.get(), "$archiver"), "NSKeyedArchiver")) {
        return std::nullopt;
    }
    const ArchivedObjects objects(list.get());
    plist_t const color = objects.follow(entry(entry(list.get(), "$top"), "root"));
    if (!objects.isOfClass(color, "NSColor")) {
        return std::nullopt;
    }
    switch (unsignedNumber(entry(color, "NSColorSpace"))
                .value_or(std::numeric_limits<std::uint64_t>::max())) {
    case CalibratedRgb:
    case DeviceRgb:
        if (const auto components = standardRgb(objects, color)) {
            return components;
        }
        return rgb(entry(color, "NSRGB"));
    case CalibratedWhite:
    case DeviceWhite:
        return white(entry(color, "NSWhite"));
    default:
        return std::nullopt;
    }
}

} // namespace quorvantel::platform
