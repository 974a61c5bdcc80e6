#include "platform/macos/MacColorArchive.h"

#import <AppKit/AppKit.h>

namespace quorvantel::platform {

namespace {

std::optional<ColorComponents> componentsOf(NSColor* color) {
    NSColor* const converted = [color colorUsingColorSpace:NSColorSpace.sRGBColorSpace];
    NSColor* const standard = converted == nil ? color : converted;
    return ColorComponents{standard.redComponent, standard.greenComponent, standard.blueComponent};
}

} // namespace

std::optional<ColorComponents> MacColorArchive::decode(const QByteArray& archive) const {
    // A colour without such components raises when it is asked for them, and what a damaged one
    // does is not said.
    @try {
        NSError* error = nil;
        NSColor* const color = [NSKeyedUnarchiver unarchivedObjectOfClass:NSColor.class
                                                                 fromData:archive.toNSData()
                                                                    error:&error];
        return color == nil ? std::nullopt : componentsOf(color);
    } @catch (NSException*) {
        return std::nullopt;
    }
}

} // namespace quorvantel::platform
