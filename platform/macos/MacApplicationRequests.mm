#include "platform/macos/MacApplicationRequests.h"

#include "platform/macos/NotificationObserver.h"

#import <AppKit/AppKit.h>
#import <CoreServices/CoreServices.h>

#include <utility>

/// Calls a handler from the event loop each time the user opens the application that runs already.
@interface QuorvantelReopenHandler : NSObject
- (instancetype)initWithHandler:(std::function<void()>)handler;
- (void)takeEvents;
- (void)giveEventsUp;
@end

@implementation QuorvantelReopenHandler {
    std::function<void()> _handler;
}

- (instancetype)initWithHandler:(std::function<void()>)handler {
    self = [super init];
    if (self != nil) {
        _handler = std::move(handler);
    }
    return self;
}

- (void)takeEvents {
    [NSAppleEventManager.sharedAppleEventManager setEventHandler:self
                                                     andSelector:@selector(reopen:withReply:)
                                                   forEventClass:kCoreEventClass
                                                      andEventID:kAEReopenApplication];
}

- (void)giveEventsUp {
    [NSAppleEventManager.sharedAppleEventManager
        removeEventHandlerForEventClass:kCoreEventClass
                             andEventID:kAEReopenApplication];
    _handler = nullptr;
}

- (void)reopen:(NSAppleEventDescriptor*)event withReply:(NSAppleEventDescriptor*)reply {
    __weak QuorvantelReopenHandler* const weakSelf = self;
    dispatch_async(dispatch_get_main_queue(), ^{
      QuorvantelReopenHandler* const owner = weakSelf;
      if (owner != nil && owner->_handler) {
          owner->_handler();
      }
    });
}

@end

namespace quorvantel::platform {

struct MacApplicationRequests::Native {
    explicit Native(std::function<void()> handler)
        : reopenings([[QuorvantelReopenHandler alloc] initWithHandler:std::move(handler)]),
          launching(NSNotificationCenter.defaultCenter, NSApplicationDidFinishLaunchingNotification,
                    nil, [taking = reopenings] { [taking takeEvents]; }) {
        // AppKit takes them itself while the application finishes launching, which may lie before
        // or after this.
        [reopenings takeEvents];
    }
    Native(const Native&) = delete;
    Native& operator=(const Native&) = delete;
    ~Native() { [reopenings giveEventsUp]; }

    QuorvantelReopenHandler* reopenings;
    NotificationObserver launching;
};

MacApplicationRequests::MacApplicationRequests(const LoginItem& loginItem)
    : m_loginItem(loginItem) {}

MacApplicationRequests::~MacApplicationRequests() = default;

void MacApplicationRequests::receive(Handler handler) {
    m_menu = std::make_unique<ApplicationMenu>(m_loginItem, handler);
    m_native = std::make_unique<Native>(
        [handler = std::move(handler)] { handler(ApplicationRequest::Summon); });
}

} // namespace quorvantel::platform
