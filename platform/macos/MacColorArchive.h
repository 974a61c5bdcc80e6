#pragma once

#include "platform/ColorArchive.h"

namespace quorvantel::platform {

/// Reads colours with `NSKeyedUnarchiver`, which makes no object of another class of them. The
/// components are those of the colour in the sRGB space, or the colour's own where it cannot be
/// converted.
class MacColorArchive final : public ColorArchive {
public:
    std::optional<ColorComponents> decode(const QByteArray& archive) const override;
};

} // namespace quorvantel::platform
