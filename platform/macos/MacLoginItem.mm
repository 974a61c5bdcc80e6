#include "platform/macos/MacLoginItem.h"

#include "platform/PrivateFile.h"
#include "platform/macos/MacDirectories.h"

#include <QCoreApplication>
#include <QDebug>
#include <QFile>

#import <Foundation/Foundation.h>

namespace quorvantel::platform {

namespace {

constexpr qint64 maximumAgentSize = qint64{64} * 1024;

NSString* const labelKey = @"Label";
NSString* const programKey = @"Program";

QString agentPath() {
    return MacDirectories().launchAgents() + u'/' + launcherIdentifier + QStringLiteral(".plist");
}

/// Null when it cannot be encoded.
QByteArray agentFor(const QString& program) {
    NSString* const identifier = launcherIdentifier.toString().toNSString();
    NSDictionary<NSString*, id>* const agent = @{
        labelKey : identifier,
        programKey : program.toNSString(),
        @"RunAtLoad" : @YES,
        // Only where there is a screen, and with the resources of an application.
        @"LimitLoadToSessionType" : @"Aqua",
        @"ProcessType" : @"Interactive",
        // Whose name the settings show for it.
        @"AssociatedBundleIdentifiers" : identifier,
    };
    NSData* const list =
        [NSPropertyListSerialization dataWithPropertyList:agent
                                                   format:NSPropertyListXMLFormat_v1_0
                                                  options:0
                                                    error:nil];
    return list == nil ? QByteArray() : QByteArray::fromNSData(list);
}

bool store(bool isEnabled) {
    const QString path = agentPath();
    if (!isEnabled) {
        return QFile::remove(path) || !QFile::exists(path);
    }
    const QByteArray agent = agentFor(QCoreApplication::applicationFilePath());
    return !agent.isEmpty() && replacePrivateFile(path, agent);
}

} // namespace

bool MacLoginItem::isEnabled() const {
    const FileContent content = readRegularFile(agentPath(), maximumAgentSize);
    const auto* const bytes = std::get_if<QByteArray>(&content);
    if (bytes == nullptr) {
        return false;
    }
    id const list = [NSPropertyListSerialization propertyListWithData:bytes->toNSData()
                                                              options:NSPropertyListImmutable
                                                               format:nil
                                                                error:nil];
    NSDictionary* const agent = [list isKindOfClass:NSDictionary.class] ? list : nil;
    NSString* const program = QCoreApplication::applicationFilePath().toNSString();
    return [program isEqual:agent[programKey]];
}

void MacLoginItem::setEnabled(bool isEnabled) {
    if (!store(isEnabled)) {
        qWarning().noquote() << QStringLiteral("Quorvantel: cannot change ") + agentPath();
        return;
    }
    // The menu's check mark and the system's own notification are what the user sees of it.
    qInfo().noquote() << (isEnabled ? QStringLiteral("Quorvantel starts at login")
                                    : QStringLiteral("Quorvantel no longer starts at login"));
}

} // namespace quorvantel::platform
