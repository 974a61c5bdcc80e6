#include "platform/macos/MacSystemAppearance.h"

#include "platform/toolkit/StillStyle.h"

#include <QApplication>

#import <AppKit/AppKit.h>

#include <functional>
#include <utility>

/// Calls a handler on the main thread when the look of applications changes, until it is stopped.
@interface QuorvantelAppearanceObserver : NSObject
- (instancetype)initWithHandler:(std::function<void()>)handler;
- (void)stop;
@end

namespace {

NSString* const appearanceKeyPath = @"effectiveAppearance";

} // namespace

@implementation QuorvantelAppearanceObserver {
    std::function<void()> _handler;
}

- (instancetype)initWithHandler:(std::function<void()>)handler {
    self = [super init];
    if (self != nil) {
        _handler = std::move(handler);
        [NSApp addObserver:self forKeyPath:appearanceKeyPath options:0 context:nullptr];
        [NSWorkspace.sharedWorkspace.notificationCenter
            addObserver:self
               selector:@selector(displayOptionsChanged:)
                   name:NSWorkspaceAccessibilityDisplayOptionsDidChangeNotification
                 object:nil];
    }
    return self;
}

- (void)stop {
    [NSApp removeObserver:self forKeyPath:appearanceKeyPath context:nullptr];
    [NSWorkspace.sharedWorkspace.notificationCenter removeObserver:self];
    _handler = nullptr;
}

- (void)observeValueForKeyPath:(NSString*)keyPath
                      ofObject:(id)object
                        change:(NSDictionary<NSKeyValueChangeKey, id>*)change
                       context:(void*)context {
    [self callHandlerSoon];
}

- (void)displayOptionsChanged:(NSNotification*)notification {
    [self callHandlerSoon];
}

/// A notification comes on the thread that posts it, and neither is a moment to draw in.
- (void)callHandlerSoon {
    __weak QuorvantelAppearanceObserver* const weakSelf = self;
    dispatch_async(dispatch_get_main_queue(), ^{
      QuorvantelAppearanceObserver* const observer = weakSelf;
      if (observer != nil && observer->_handler) {
          observer->_handler();
      }
    });
}

@end

namespace quorvantel::platform {

class MacSystemAppearance::Observation {
public:
    explicit Observation(std::function<void()> handler)
        : m_observer([[QuorvantelAppearanceObserver alloc] initWithHandler:std::move(handler)]) {}
    Observation(const Observation&) = delete;
    Observation& operator=(const Observation&) = delete;
    ~Observation() { [m_observer stop]; }

private:
    QuorvantelAppearanceObserver* m_observer;
};

MacSystemAppearance::MacSystemAppearance()
    : m_answers(currentAnswers()),
      m_observation(std::make_unique<Observation>([this] { refresh(); })) {
    updateMotion();
}

MacSystemAppearance::~MacSystemAppearance() = default;

MacSystemAppearance::Answers MacSystemAppearance::currentAnswers() {
    NSAppearanceName const name = [NSApp.effectiveAppearance
        bestMatchFromAppearancesWithNames:@[ NSAppearanceNameAqua, NSAppearanceNameDarkAqua ]];
    NSWorkspace* const workspace = NSWorkspace.sharedWorkspace;
    return {
        .prefersDark = [name isEqualToString:NSAppearanceNameDarkAqua] == YES,
        .reducesTransparency = workspace.accessibilityDisplayShouldReduceTransparency == YES,
        .increasesContrast = workspace.accessibilityDisplayShouldIncreaseContrast == YES,
    };
}

void MacSystemAppearance::refresh() {
    updateMotion();
    const Answers answers = currentAnswers();
    if (std::exchange(m_answers, answers) != answers) {
        Q_EMIT changed();
    }
}

void MacSystemAppearance::updateMotion() {
    const bool isReduced =
        NSWorkspace.sharedWorkspace.accessibilityDisplayShouldReduceMotion == YES;
    if (m_stillStyle == nullptr && isReduced) {
        m_stillStyle = new StillStyle;
        QApplication::setStyle(m_stillStyle);
    }
    if (m_stillStyle != nullptr) {
        m_stillStyle->isStill = isReduced;
    }
}

} // namespace quorvantel::platform
