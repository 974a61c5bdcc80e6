#pragma once

#import <Foundation/Foundation.h>

#include <functional>
#include <utility>

namespace quorvantel::platform {

/// Calls a handler at every notification of one kind, for as long as this object lives. For
/// Objective-C++ alone.
///
/// The handler runs on the thread that posts the notification, before the posting returns. All that
/// is observed here is posted on the main thread, where this object ends as well, so that no
/// handler runs afterwards.
class NotificationObserver {
public:
    /// `sender` may be nil, for any.
    NotificationObserver(NSNotificationCenter* _Nonnull center, NSNotificationName _Nonnull name,
                         id _Nullable sender, std::function<void()> handler)
        : m_center(center),
          m_token([center addObserverForName:name
                                      object:sender
                                       queue:nil
                                  usingBlock:^(NSNotification* _Nonnull) {
                                    handler();
                                  }]) {}
    NotificationObserver(const NotificationObserver&) = delete;
    NotificationObserver& operator=(const NotificationObserver&) = delete;
    ~NotificationObserver() { [m_center removeObserver:m_token]; }

private:
    NSNotificationCenter* _Nonnull m_center;
    id<NSObject> _Nonnull m_token;
};

} // namespace quorvantel::platform
