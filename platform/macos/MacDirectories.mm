#include "platform/macos/MacDirectories.h"

#include <QDir>

#import <Foundation/Foundation.h>

namespace quorvantel::platform {

namespace {

QString userDirectory(NSSearchPathDirectory directory, const QString& usualPlace) {
    NSURL* const url = [NSFileManager.defaultManager URLsForDirectory:directory
                                                            inDomains:NSUserDomainMask]
                           .firstObject;
    return url.path == nil ? QDir::homePath() + usualPlace : QString::fromNSString(url.path);
}

} // namespace

QString MacDirectories::applicationSupport() const {
    return userDirectory(NSApplicationSupportDirectory,
                         QStringLiteral("/Library/Application Support"));
}

QString MacDirectories::launchAgents() const {
    return userDirectory(NSLibraryDirectory, QStringLiteral("/Library")) +
           QStringLiteral("/LaunchAgents");
}

} // namespace quorvantel::platform
