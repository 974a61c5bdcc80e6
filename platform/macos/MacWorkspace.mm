#include "platform/macos/MacWorkspace.h"

#include <QDebug>

#import <AppKit/AppKit.h>

#include <utility>

namespace quorvantel::platform {

MacWorkspace::MacWorkspace() : m_pending(std::make_shared<PendingCompletions>()) {}

void MacWorkspace::openApplication(const QUrl& location, Completion completion) {
    NSURL* const url = [NSURL fileURLWithPath:location.toLocalFile().toNSString() isDirectory:YES];
    NSWorkspaceOpenConfiguration* const configuration =
        [NSWorkspaceOpenConfiguration configuration];
    configuration.activates = YES;
    const PendingCompletions::Number number = m_pending->add(std::move(completion));
    const std::weak_ptr<PendingCompletions> pending = m_pending;
    const auto report = ^(NSRunningApplication* /*application*/, NSError* error) {
      // On a queue of the system's.
      const QString problem =
          error == nil ? QString() : QString::fromNSString(error.localizedDescription);
      dispatch_async(dispatch_get_main_queue(), ^{
        if (const auto waiting = pending.lock()) {
            waiting->finish(number, problem);
        }
      });
    };
    [NSWorkspace.sharedWorkspace openApplicationAtURL:url
                                        configuration:configuration
                                    completionHandler:report];
}

bool MacWorkspace::openSettings(const QUrl& url) {
    NSURL* const address = url.toNSURL();
    if (address != nil && [NSWorkspace.sharedWorkspace openURL:address]) {
        return true;
    }
    qWarning("Quorvantel: nothing here shows %s", qUtf8Printable(url.toString()));
    return false;
}

} // namespace quorvantel::platform
