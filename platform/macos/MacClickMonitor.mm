#include "platform/macos/MacClickMonitor.h"

#import <AppKit/AppKit.h>

#include <utility>

namespace quorvantel::platform {

namespace {

class Observation : public ClickMonitor::Token {
public:
    explicit Observation(id monitor) : m_monitor(monitor) {}
    ~Observation() override { [NSEvent removeMonitor:m_monitor]; }

private:
    id m_monitor;
};

} // namespace

std::unique_ptr<ClickMonitor::Token> MacClickMonitor::observe(std::function<void()> handler) {
    constexpr NSEventMask presses = NSEventMaskLeftMouseDown | NSEventMaskRightMouseDown;
    id monitor = [NSEvent addGlobalMonitorForEventsMatchingMask:presses
                                                        handler:^(NSEvent* _Nonnull) {
                                                          // A copy, since it may end the
                                                          // observation.
                                                          const std::function<void()> kept =
                                                              handler;
                                                          kept();
                                                        }];
    return monitor == nil ? nullptr : std::make_unique<Observation>(monitor);
}

} // namespace quorvantel::platform
