#pragma once

#include <QByteArray>

#include <optional>

namespace quorvantel::platform {

/// The components of an opaque colour, nominally from 0 to 1 and not limited to that range.
struct ColorComponents {
    double red;
    double green;
    double blue;

    friend bool operator==(const ColorComponents&, const ColorComponents&) = default;
};

/// Reads the colours that earlier versions stored.
class ColorArchive {
public:
    virtual ~ColorArchive() = default;

    /// The colour in the keyed archive (`NSKeyedArchiver`) of one `NSColor`, without its opacity.
    /// Anything else, from another class of object to a damaged or malicious archive, is no colour.
    /// The archive may come from anyone.
    virtual std::optional<ColorComponents> decode(const QByteArray& archive) const = 0;
};

} // namespace quorvantel::platform
