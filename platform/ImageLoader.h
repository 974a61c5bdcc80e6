#pragma once

#include "platform/Image.h"

#include <QPixmap>

namespace quorvantel::platform {

/// Resolves and decodes the images that the system supplies.
///
/// On macOS this is `NSWorkspace iconForFile:` and `NSImage imageWithSystemSymbolName:`; on Linux
/// the desktop's icon theme and the launcher's own symbols. Main thread only.
class ImageLoader {
public:
    virtual ~ImageLoader() = default;

    /// The image at `points` × `points` device-independent pixels for a screen of the given scale
    /// factor, its device pixel ratio set accordingly. A null pixmap when the image is missing or
    /// cannot be decoded. Of a template image only the alpha channel counts.
    virtual QPixmap load(const Image& image, int points, qreal scale) = 0;

    /// Takes in the icons and the choice of an icon theme that changed since the last call. Returns
    /// whether any did, so that images which were loaded earlier may look different now. Too slow
    /// for a moment in which somebody waits.
    virtual bool refresh() { return false; }
};

} // namespace quorvantel::platform
