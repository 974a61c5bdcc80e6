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

/// Reads the colour out of a keyed archive (`NSKeyedArchiver`) of one `NSColor`, a property list in
/// XML or binary form.
///
/// Calibrated and device RGB, sRGB and white are understood. The components are those of the
/// archive: no colour management takes place, white gives three equal components, and opacity is
/// dropped. Anything else, from another class of object to a damaged or malicious archive, is no
/// colour. The archive may come from anyone.
std::optional<ColorComponents> decodeColorArchive(const QByteArray& archive);

} // namespace quorvantel::platform
