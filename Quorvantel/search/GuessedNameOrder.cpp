#include "search/GuessedNameOrder.h"

#include "text/Ascii.h"
#include "text/TextFolding.h"

#include <algorithm>
#include <array>
#include <string>
#include <string_view>

// To ask a collation about two names takes as long as to compare hundreds of bytes, and to sort
// a catalogue takes a dozen questions a name. Names that are guessed to be in order need one each.
namespace quorvantel {

namespace {

/// By ASCII character its place in the Default Unicode Collation Element Table, case disregarded.
constexpr auto ranks = [] {
    constexpr std::string_view order =
        " _-,;:!?.'\"()[]{}@*/\\&#%`^+<=>|~$0123456789abcdefghijklmnopqrstuvwxyz";
    std::array<char, 0x80> values{};
    for (std::size_t i = 0; i < order.size(); ++i) {
        values[static_cast<unsigned char>(order[i])] = static_cast<char>(i + 1);
    }
    return values;
}();

struct Name {
    /// The first bytes of `guess`, the first one the most significant.
    std::uint64_t start;
    std::uint32_t index;
    std::uint32_t length;
    /// Where the bytes are that stand for the name.
    std::size_t offset;
};

void appendScalar(char32_t scalar, std::string& bytes) {
    if (scalar < ranks.size()) {
        bytes += ranks[scalar];
        return;
    }
    bytes += static_cast<char>(0x80 + (scalar >> 16));
    bytes += static_cast<char>(scalar >> 8);
    bytes += static_cast<char>(scalar);
}

void appendName(const QString& name, std::string& bytes) {
    if (!isAscii(name)) {
        for (const char32_t scalar : foldedScalars(name)) {
            appendScalar(scalar, bytes);
        }
        return;
    }
    for (const QChar unit : name) {
        bytes += ranks[asciiLowercase(unit.unicode())];
    }
}

std::uint64_t startOf(std::string_view bytes) {
    std::uint64_t start = 0;
    for (std::size_t i = 0; i < sizeof start; ++i) {
        start = start << 8 | (i < bytes.size() ? static_cast<unsigned char>(bytes[i]) : 0U);
    }
    return start;
}

} // namespace

std::vector<std::uint32_t> guessedNameOrder(const std::vector<LaunchTarget>& targets) {
    std::string bytes;
    std::vector<Name> names;
    names.reserve(targets.size());
    for (const LaunchTarget& target : targets) {
        const std::size_t offset = bytes.size();
        appendName(target.displayName(), bytes);
        const std::string_view own = std::string_view(bytes).substr(offset);
        names.push_back({startOf(own), static_cast<std::uint32_t>(names.size()),
                         static_cast<std::uint32_t>(own.size()), offset});
    }
    const auto bytesOf = [&bytes](const Name& name) {
        return std::string_view(bytes).substr(name.offset, name.length);
    };
    std::sort(names.begin(), names.end(), [&](const Name& left, const Name& right) {
        if (left.start != right.start) {
            return left.start < right.start;
        }
        const int difference = bytesOf(left).compare(bytesOf(right));
        return difference != 0 ? difference < 0 : left.index < right.index;
    });
    std::vector<std::uint32_t> order;
    order.reserve(names.size());
    for (const Name& name : names) {
        order.push_back(name.index);
    }
    return order;
}

} // namespace quorvantel
