#include "platform/linux/PropertyListGuard.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace quorvantel::platform {

namespace {

// A few times what the largest property lists of real applications hold, and a quarter of the
// nesting at which libplist runs out of the usual eight megabytes of stack.
constexpr int maximumContainers = 5'000;
constexpr int maximumNodes = 20'000;
constexpr std::uint64_t maximumTreeBytes = 16'777'216;

/// The object table of a binary property list: objects that refer to each other by number, an
/// offset table, and a trailer of 32 bytes that says where that is.
class ObjectTable {
public:
    static std::optional<ObjectTable> find(QByteArrayView content) {
        constexpr std::uint64_t trailerSize = 32;
        constexpr std::uint64_t headerSize = 8;
        const auto size = static_cast<std::uint64_t>(content.size());
        if (size < headerSize + trailerSize) {
            return std::nullopt;
        }
        ObjectTable table;
        table.m_content = content.first(content.size() - qsizetype{trailerSize});
        const std::uint64_t trailer = size - trailerSize;
        table.m_offsetSize = static_cast<std::uint8_t>(content[qsizetype(trailer) + 6]);
        table.m_referenceSize = static_cast<std::uint8_t>(content[qsizetype(trailer) + 7]);
        const auto field = [&](int at) {
            return bigEndian(content.sliced(qsizetype(trailer) + at, 8));
        };
        table.m_count = field(8);
        table.m_root = field(16);
        table.m_offsets = field(24);
        const auto isSize = [](std::uint64_t bytes) { return bytes >= 1 && bytes <= 8; };
        if (!isSize(table.m_offsetSize) || !isSize(table.m_referenceSize) ||
            table.m_offsets > trailer ||
            table.m_count > (trailer - table.m_offsets) / table.m_offsetSize) {
            return std::nullopt;
        }
        return table;
    }

    /// Follows every reference from the root and adds up what the tree would hold.
    bool isHarmless() const {
        std::vector<std::uint64_t> pending{m_root};
        int nodes = 0;
        std::uint64_t bytes = 0;
        while (!pending.empty()) {
            const std::uint64_t index = pending.back();
            pending.pop_back();
            if (++nodes > maximumNodes) {
                return false;
            }
            const std::optional<std::uint64_t> length = visit(index, pending);
            if (!length || pending.size() > maximumNodes) {
                return false;
            }
            bytes += *length;
            if (bytes > maximumTreeBytes) {
                return false;
            }
        }
        return true;
    }

private:
    enum Type : std::uint8_t {
        Data = 0x4,
        Ascii = 0x5,
        Utf16 = 0x6,
        Array = 0xA,
        Set = 0xC,
        Dictionary = 0xD,
    };

    struct Object {
        std::uint8_t type;
        std::uint64_t count;
        std::uint64_t payload;
    };

    static std::uint64_t bigEndian(QByteArrayView bytes) {
        std::uint64_t value = 0;
        for (const char byte : bytes) {
            value = value << 8 | static_cast<std::uint8_t>(byte);
        }
        return value;
    }

    std::optional<std::uint64_t> number(std::uint64_t at, std::uint64_t size) const {
        const auto end = static_cast<std::uint64_t>(m_content.size());
        if (at > end || size > end - at) {
            return std::nullopt;
        }
        return bigEndian(m_content.sliced(qsizetype(at), qsizetype(size)));
    }

    std::optional<Object> object(std::uint64_t index) const {
        if (index >= m_count) {
            return std::nullopt;
        }
        const auto at = number(m_offsets + index * m_offsetSize, m_offsetSize);
        const auto marker = at ? number(*at, 1) : std::nullopt;
        if (!marker) {
            return std::nullopt;
        }
        Object object{static_cast<std::uint8_t>(*marker >> 4), *marker & 0xF, *at + 1};
        if (object.count != 0xF || object.type < Data) {
            return object;
        }
        // A count of fifteen or more follows as an integer object of its own.
        const auto sizeMarker = number(object.payload, 1);
        if (!sizeMarker || *sizeMarker >> 4 != 1 || (*sizeMarker & 0xF) > 3) {
            return std::nullopt;
        }
        const std::uint64_t size = std::uint64_t{1} << (*sizeMarker & 0xF);
        const auto count = number(object.payload + 1, size);
        if (!count) {
            return std::nullopt;
        }
        return Object{object.type, *count, object.payload + 1 + size};
    }

    /// Whether a text holds a null character, at which libplist ends the process when the text is a
    /// key; a text that exceeds the file counts as one.
    bool hasNull(const Object& text, std::uint64_t unitSize) const {
        for (std::uint64_t i = 0; i < text.count; ++i) {
            if (number(text.payload + i * unitSize, unitSize).value_or(0) == 0) {
                return true;
            }
        }
        return false;
    }

    /// The bytes that the object itself takes; what it refers to is added to `pending`.
    std::optional<std::uint64_t> visit(std::uint64_t index,
                                       std::vector<std::uint64_t>& pending) const {
        const auto found = object(index);
        if (!found || found->count > static_cast<std::uint64_t>(m_content.size())) {
            return std::nullopt;
        }
        switch (found->type) {
        case Data:
            return found->count;
        case Ascii:
            return hasNull(*found, 1) ? std::nullopt : std::optional(found->count);
        case Utf16:
            return hasNull(*found, 2) ? std::nullopt : std::optional(found->count * 2);
        case Array:
        case Set:
        case Dictionary:
            break;
        default:
            return 0;
        }
        const std::uint64_t references =
            found->type == Dictionary ? found->count * 2 : found->count;
        for (std::uint64_t i = 0; i < references && pending.size() <= maximumNodes; ++i) {
            const auto reference = number(found->payload + i * m_referenceSize, m_referenceSize);
            if (!reference) {
                return std::nullopt;
            }
            pending.push_back(*reference);
        }
        return 0;
    }

    QByteArrayView m_content;
    std::uint64_t m_offsetSize = 0;
    std::uint64_t m_referenceSize = 0;
    std::uint64_t m_count = 0;
    std::uint64_t m_root = 0;
    std::uint64_t m_offsets = 0;
};

} // namespace

bool isHarmlessXmlList(QByteArrayView content) {
    // Also the tags in comments count: what is nested is at most what is opened.
    int containers = 0;
    for (qsizetype at = content.indexOf('<'); at >= 0; at = content.indexOf('<', at + 1)) {
        const QByteArrayView tag = content.sliced(at);
        if ((tag.startsWith("<array") || tag.startsWith("<dict")) &&
            ++containers > maximumContainers) {
            return false;
        }
    }
    return true;
}

bool isHarmlessBinaryList(QByteArrayView content) {
    const std::optional<ObjectTable> table = ObjectTable::find(content);
    return table && table->isHarmless();
}

} // namespace quorvantel::platform
