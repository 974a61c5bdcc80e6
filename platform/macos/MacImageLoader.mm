#include "platform/macos/MacImageLoader.h"

#include "platform/macos/OwnSymbols.h"
#include "platform/macos/SymbolFrame.h"

#include <QFileInfo>
#include <QImage>

#import <AppKit/AppKit.h>

#include <memory>
#include <type_traits>

namespace quorvantel::platform {

namespace {

/// The font size of a symbol that about fills a square of one point: symbols stand out above and
/// below the letters of their size.
constexpr CGFloat symbolSize = 0.85;

template <typename Reference, void (*release)(Reference)>
struct Releasing {
    void operator()(Reference reference) const { release(reference); }
};

template <typename Reference, void (*release)(Reference)>
using Owned = std::unique_ptr<std::remove_pointer_t<Reference>, Releasing<Reference, release>>;

using ColorSpace = Owned<CGColorSpaceRef, CGColorSpaceRelease>;
using BitmapContext = Owned<CGContextRef, CGContextRelease>;

/// A context that draws into `canvas`, which outlives it.
BitmapContext contextOn(QImage& canvas) {
    const ColorSpace colors(CGColorSpaceCreateWithName(kCGColorSpaceSRGB));
    return BitmapContext(
        CGBitmapContextCreate(canvas.bits(), static_cast<std::size_t>(canvas.width()),
                              static_cast<std::size_t>(canvas.height()), 8,
                              static_cast<std::size_t>(canvas.bytesPerLine()), colors.get(),
                              static_cast<std::uint32_t>(kCGImageAlphaPremultipliedFirst) |
                                  static_cast<std::uint32_t>(kCGBitmapByteOrder32Host)));
}

/// The image in a frame, in points, of a square of `pixels`.
QImage drawn(NSImage* image, const QRectF& frame, int pixels, qreal scale) {
    QImage canvas(pixels, pixels, QImage::Format_ARGB32_Premultiplied);
    canvas.fill(Qt::transparent);
    const BitmapContext context = contextOn(canvas);
    if (!context) {
        return {};
    }
    CGContextScaleCTM(context.get(), scale, scale);
    [NSGraphicsContext saveGraphicsState];
    NSGraphicsContext.currentContext = [NSGraphicsContext graphicsContextWithCGContext:context.get()
                                                                               flipped:NO];
    [image drawInRect:NSMakeRect(frame.x(), frame.y(), frame.width(), frame.height())];
    [NSGraphicsContext restoreGraphicsState];
    return canvas;
}

QImage fileIcon(const QString& path, int points, int pixels, qreal scale) {
    // The system would show a general icon for what is not there.
    if (!QFileInfo::exists(path)) {
        return {};
    }
    NSImage* const icon = [NSWorkspace.sharedWorkspace iconForFile:path.toNSString()];
    return drawn(icon, QRectF(0, 0, points, points), pixels, scale);
}

QImage symbol(const QString& name, int points, int pixels, qreal scale) {
    NSImageSymbolConfiguration* const configuration =
        [NSImageSymbolConfiguration configurationWithPointSize:points * symbolSize
                                                        weight:NSFontWeightRegular];
    NSImage* const image =
        [[NSImage imageWithSystemSymbolName:name.toNSString()
                   accessibilityDescription:nil] imageWithSymbolConfiguration:configuration];
    if (image == nil) {
        return ownSymbol(name, pixels);
    }
    const QRectF frame = symbolFrame(QSizeF(image.size.width, image.size.height), points);
    return drawn(image, frame, pixels, scale);
}

} // namespace

QPixmap MacImageLoader::load(const Image& image, int points, qreal scale) {
    @autoreleasepool {
        const int pixels = qRound(points * scale);
        QImage result;
        if (image.source == Image::Source::File) {
            result = fileIcon(image.name, points, pixels, scale);
        } else if (image.source == Image::Source::Symbol) {
            result = symbol(image.name, points, pixels, scale);
        }
        result.setDevicePixelRatio(scale);
        return QPixmap::fromImage(result);
    }
}

} // namespace quorvantel::platform
