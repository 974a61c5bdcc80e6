#include "platform/linux/KeyedColorArchive.h"

#include "platform/linux/PropertyList.h"

#include <cstdint>
#include <limits>
#include <vector>

namespace quorvantel::platform {

using namespace Qt::StringLiterals;

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
constexpr qsizetype maximumComponentsSize = 256;

QVariant entry(const QVariant& dictionary, QLatin1StringView key) {
    return dictionary.toMap().value(key);
}

std::optional<std::uint64_t> unsignedNumber(const QVariant& value) {
    const bool isWhole = value.typeId() == QMetaType::LongLong && value.toLongLong() >= 0;
    return isWhole || value.typeId() == QMetaType::ULongLong
               ? std::optional<std::uint64_t>(value.toULongLong())
               : std::nullopt;
}

bool isText(const QVariant& value, QLatin1StringView text) {
    return value.typeId() == QMetaType::QString && value.toString() == text;
}

/// The objects of a keyed archive, which refer to each other by their position. References are
/// followed one at a time, never in a loop, so circular ones do no harm.
class ArchivedObjects {
public:
    explicit ArchivedObjects(const QVariant& archive)
        : m_objects(entry(archive, "$objects"_L1).toList()) {}

    /// What `reference` refers to; nothing when it is no reference or leads outside the archive.
    QVariant follow(const QVariant& reference) const {
        const auto index = unsignedNumber(entry(reference, "CF$UID"_L1));
        return index && *index < static_cast<std::uint64_t>(m_objects.size())
                   ? m_objects[static_cast<qsizetype>(*index)]
                   : QVariant();
    }

    bool isOfClass(const QVariant& object, QLatin1StringView name) const {
        return isText(entry(follow(entry(object, "$class"_L1)), "$classname"_L1), name);
    }

private:
    QVariantList m_objects;
};

/// Decimal numbers in ASCII, separated by spaces and possibly ended by a null character.
std::optional<std::vector<double>> componentNumbers(const QVariant& value) {
    QByteArray text = value.toByteArray();
    if (value.typeId() != QMetaType::QByteArray || text.size() > maximumComponentsSize) {
        return std::nullopt;
    }
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

std::optional<ColorComponents> rgb(const QVariant& value) {
    const auto numbers = componentNumbers(value);
    if (!numbers || numbers->size() < 3) {
        return std::nullopt;
    }
    return ColorComponents{(*numbers)[0], (*numbers)[1], (*numbers)[2]};
}

std::optional<ColorComponents> white(const QVariant& value) {
    const auto numbers = componentNumbers(value);
    if (!numbers || numbers->empty()) {
        return std::nullopt;
    }
    return ColorComponents{numbers->front(), numbers->front(), numbers->front()};
}

/// The components of a colour that was made in the sRGB space; its "NSRGB" holds them converted to
/// the calibrated space, for readers that know no other.
std::optional<ColorComponents> standardRgb(const ArchivedObjects& objects, const QVariant& color) {
    const QVariant space = objects.follow(entry(color, "NSCustomColorSpace"_L1));
    if (!objects.isOfClass(space, "NSColorSpace"_L1) ||
        unsignedNumber(entry(space, "NSID"_L1)) != standardRgbIdentifier) {
        return std::nullopt;
    }
    return rgb(entry(color, "NSComponents"_L1));
}

} // namespace

std::optional<ColorComponents> KeyedColorArchive::decode(const QByteArray& archive) const {
    const auto list = PropertyList::parse(archive);
    const QVariant root = list ? list->toVariant() : QVariant();
    if (!isText(entry(root, "$archiver"_L1), "NSKeyedArchiver"_L1)) {
        return std::nullopt;
    }
    const ArchivedObjects objects(root);
    const QVariant color = objects.follow(entry(entry(root, "$top"_L1), "root"_L1));
    if (!objects.isOfClass(color, "NSColor"_L1)) {
        return std::nullopt;
    }
    switch (unsignedNumber(entry(color, "NSColorSpace"_L1))
                .value_or(std::numeric_limits<std::uint64_t>::max())) {
    case CalibratedRgb:
    case DeviceRgb:
        if (const auto components = standardRgb(objects, color)) {
            return components;
        }
        return rgb(entry(color, "NSRGB"_L1));
    case CalibratedWhite:
    case DeviceWhite:
        return white(entry(color, "NSWhite"_L1));
    default:
        return std::nullopt;
    }
}

} // namespace quorvantel::platform
