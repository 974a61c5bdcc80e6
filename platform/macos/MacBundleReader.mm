#include "platform/macos/MacBundleReader.h"

#import "platform/macos/FoundationValues.h"

namespace quorvantel::platform {

QStringList MacBundleReader::childNames(const QString& directory) const {
    @autoreleasepool {
        NSArray<NSString*>* const names =
            [NSFileManager.defaultManager contentsOfDirectoryAtPath:directory.toNSString()
                                                              error:nil];
        QStringList result;
        for (NSString* name in names) {
            result.append(QString::fromNSString(name));
        }
        return result;
    }
}

std::optional<QVariantMap> MacBundleReader::infoDictionary(const QString& path) const {
    @autoreleasepool {
        NSURL* const url = [NSURL fileURLWithPath:path.toNSString() isDirectory:YES];
        NSDictionary* const info =
            CFBridgingRelease(CFBundleCopyInfoDictionaryInDirectory((__bridge CFURLRef)url));
        const QVariantMap values = variantOf(info).toMap();
        return values.isEmpty() ? std::nullopt : std::optional(values);
    }
}

QString MacBundleReader::localizedName(const QString& path, const QVariantMap& /*info*/) const {
    @autoreleasepool {
        NSURL* const url = [NSURL fileURLWithPath:path.toNSString() isDirectory:YES];
        NSString* name = nil;
        return [url getResourceValue:&name forKey:NSURLLocalizedNameKey error:nil]
                   ? QString::fromNSString(name)
                   : QString();
    }
}

QString MacBundleReader::displayName(const QString& path, const QVariantMap& /*info*/) const {
    @autoreleasepool {
        return QString::fromNSString(
            [NSFileManager.defaultManager displayNameAtPath:path.toNSString()]);
    }
}

Image MacBundleReader::icon(const QString& path, const QVariantMap& /*info*/) const {
    return Image::file(path);
}

} // namespace quorvantel::platform
