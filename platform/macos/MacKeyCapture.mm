#include "platform/macos/MacKeyCapture.h"

#include "platform/macos/EventModifiers.h"
#include "platform/macos/NativeWindows.h"

#include <utility>

namespace quorvantel::platform {

class MacKeyCapture::Watch : public Token {
public:
    Watch(MacKeyCapture& owner, QWindow& window, Handler handler)
        : m_owner(owner), m_window(nativeWindow(window)), m_handler(std::move(handler)) {
        m_owner.m_watch = this;
        // The block does not keep this object, which takes the monitor away when it ends.
        m_monitor = [NSEvent
            addLocalMonitorForEventsMatchingMask:NSEventMaskKeyDown | NSEventMaskFlagsChanged
                                         handler:^NSEvent* _Nullable(NSEvent* _Nonnull event) {
                                           return decide(event) == Fate::Swallowed ? nil : event;
                                         }];
    }
    ~Watch() override {
        if (m_monitor != nil) {
            [NSEvent removeMonitor:m_monitor];
        }
        if (m_owner.m_watch == this) {
            m_owner.m_watch = nullptr;
        }
    }

    bool isInstalled() const { return m_monitor != nil; }

private:
    Fate decide(NSEvent* event) {
        if (m_owner.m_watch != this || event.window != m_window) {
            return Fate::PassedOn;
        }
        if (event.type != NSEventTypeKeyDown || event.isARepeat) {
            return Fate::Swallowed;
        }
        // A copy, since it may end the capture.
        const Handler handler = m_handler;
        return handler({event.keyCode, hotKeyModifiers(event.modifierFlags)});
    }

    MacKeyCapture& m_owner;
    __weak NSWindow* m_window;
    Handler m_handler;
    id m_monitor = nil;
};

std::unique_ptr<KeyCapture::Token> MacKeyCapture::capture(QWindow& window, Handler handler) {
    auto watch = std::make_unique<Watch>(*this, window, std::move(handler));
    return watch->isInstalled() ? std::move(watch) : nullptr;
}

} // namespace quorvantel::platform
