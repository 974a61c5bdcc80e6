#include "platform/macos/MacApplicationRequests.h"

#import <AppKit/AppKit.h>
#import <CoreServices/CoreServices.h>

#include <utility>

/// Calls a handler from the event loop each time the user opens the application that runs already,
/// until it is stopped.
@interface QuorvantelReopenObserver : NSObject
- (instancetype)initWithHandler:(std::function<void()>)handler;
- (void)stop;
@end

@implementation QuorvantelReopenObserver {
    std::function<void()> _handler;
}

- (instancetype)initWithHandler:(std::function<void()>)handler {
    self = [super init];
    if (self != nil) {
        _handler = std::move(handler);
        // AppKit installs its own handlers while the application finishes launching, which may lie
        // before or after this.
        [self takeReopenEvents];
        [NSNotificationCenter.defaultCenter addObserver:self
                                               selector:@selector(takeReopenEvents)
                                                   name:NSApplicationDidFinishLaunchingNotification
                                                 object:nil];
    }
    return self;
}

- (void)takeReopenEvents {
    [NSAppleEventManager.sharedAppleEventManager setEventHandler:self
                                                     andSelector:@selector(reopen:withReply:)
                                                   forEventClass:kCoreEventClass
                                                      andEventID:kAEReopenApplication];
}

- (void)stop {
    [NSNotificationCenter.defaultCenter removeObserver:self];
    [NSAppleEventManager.sharedAppleEventManager
        removeEventHandlerForEventClass:kCoreEventClass
                             andEventID:kAEReopenApplication];
    _handler = nullptr;
}

- (void)reopen:(NSAppleEventDescriptor*)event withReply:(NSAppleEventDescriptor*)reply {
    __weak QuorvantelReopenObserver* const weakSelf = self;
    dispatch_async(dispatch_get_main_queue(), ^{
      QuorvantelReopenObserver* const observer = weakSelf;
      if (observer != nil && observer->_handler) {
          observer->_handler();
      }
    });
}

@end

namespace quorvantel::platform {

class MacApplicationRequests::Reopenings {
public:
    explicit Reopenings(std::function<void()> handler)
        : m_observer([[QuorvantelReopenObserver alloc] initWithHandler:std::move(handler)]) {}
    Reopenings(const Reopenings&) = delete;
    Reopenings& operator=(const Reopenings&) = delete;
    ~Reopenings() { [m_observer stop]; }

private:
    QuorvantelReopenObserver* m_observer;
};

MacApplicationRequests::MacApplicationRequests(const LoginItem& loginItem)
    : m_loginItem(loginItem) {}

MacApplicationRequests::~MacApplicationRequests() = default;

void MacApplicationRequests::receive(Handler handler) {
    m_menu = std::make_unique<ApplicationMenu>(m_loginItem, handler);
    m_reopenings = std::make_unique<Reopenings>(
        [handler = std::move(handler)] { handler(ApplicationRequest::Summon); });
}

} // namespace quorvantel::platform
