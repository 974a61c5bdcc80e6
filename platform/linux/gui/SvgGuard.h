#pragma once

#include <QByteArray>

#include <functional>

namespace quorvantel::platform {

/// Whether a picture that an SVG document embeds may be decoded.
using EmbeddedPictureCheck = std::function<bool(const QByteArray& content)>;

/// Whether an SVG document (Scalable Vector Graphics, in XML without compression) is small enough
/// to be read at once, and refers to nothing outside itself: no file, no address, no style sheet.
/// Elements count as often as they are drawn, so those that `use` multiplies do too, and long paths
/// count for more. What it takes to draw them is another question.
bool isHarmlessSvg(const QByteArray& document, const EmbeddedPictureCheck& mayDecode);

} // namespace quorvantel::platform
