#include "platform/macos/MacSystemAppearance.h"

#include "platform/macos/NotificationObserver.h"
#include "platform/toolkit/StillStyle.h"

#include <QApplication>

#import <AppKit/AppKit.h>

#include <functional>
#include <utility>

/// Calls a handler at every change of what it observes.
@interface QuorvantelValueObserver : NSObject
- (instancetype)initWithHandler:(std::function<void()>)handler;
@end

@implementation QuorvantelValueObserver {
    std::function<void()> _handler;
}

- (instancetype)initWithHandler:(std::function<void()>)handler {
    self = [super init];
    if (self != nil) {
        _handler = std::move(handler);
    }
    return self;
}

- (void)observeValueForKeyPath:(NSString*)keyPath
                      ofObject:(id)object
                        change:(NSDictionary<NSKeyValueChangeKey, id>*)change
                       context:(void*)context {
    _handler();
}

@end

namespace quorvantel::platform {

namespace {

NSString* const effectiveAppearance = @"effectiveAppearance";

/// Calls a handler when the application has another appearance, for as long as this object lives.
class AppearanceObserver {
public:
    explicit AppearanceObserver(std::function<void()> handler)
        : m_observer([[QuorvantelValueObserver alloc] initWithHandler:std::move(handler)]) {
        [NSApp addObserver:m_observer forKeyPath:effectiveAppearance options:0 context:nullptr];
    }
    AppearanceObserver(const AppearanceObserver&) = delete;
    AppearanceObserver& operator=(const AppearanceObserver&) = delete;
    ~AppearanceObserver() {
        [NSApp removeObserver:m_observer forKeyPath:effectiveAppearance context:nullptr];
    }

private:
    QuorvantelValueObserver* m_observer;
};

} // namespace

struct MacSystemAppearance::Native {
    explicit Native(const std::function<void()>& handler)
        : appearance(handler),
          displayOptions(NSWorkspace.sharedWorkspace.notificationCenter,
                         NSWorkspaceAccessibilityDisplayOptionsDidChangeNotification, nil,
                         handler) {}

    AppearanceObserver appearance;
    NotificationObserver displayOptions;
};

MacSystemAppearance::MacSystemAppearance()
    : m_answers(currentAnswers()), m_native(std::make_unique<Native>([this] { refresh(); })) {
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
