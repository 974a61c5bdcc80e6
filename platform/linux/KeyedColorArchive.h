#pragma once

#include "platform/ColorArchive.h"

namespace quorvantel::platform {

/// Reads the keyed archive (`NSKeyedArchiver`) of one `NSColor`, a property list in XML or binary
/// form.
///
/// Calibrated and device RGB, sRGB and white are understood. The components are those of the
/// archive: no colour management takes place, and white gives three equal components.
class KeyedColorArchive final : public ColorArchive {
public:
    std::optional<ColorComponents> decode(const QByteArray& archive) const override;
};

} // namespace quorvantel::platform
