#include "platform/linux/x11/X11EventDispatcher.h"

#include <QByteArray>

#include <gtest/gtest.h>

#include <functional>
#include <optional>
#include <string>

namespace quorvantel::platform {
namespace {

using enum X11EventRank;

/// Does what the test says and tells whether it keeps the event.
class Handler : public X11EventHandler {
public:
    Handler(X11EventDispatcher& events, X11EventRank rank, std::function<bool()> does)
        : X11EventHandler(events, rank), m_does(std::move(does)) {}

    bool handleEvent(const xcb_generic_event_t& /*event*/) override {
        const auto does = m_does;
        return does();
    }

private:
    std::function<bool()> m_does;
};

TEST(X11EventDispatcherTest, AsksByRankUntilOneKeepsItWhoeverComesAndGoesMeanwhile) {
    X11EventDispatcher events;
    std::string order;
    const auto note = [&](char letter, bool keeps = false) {
        return [&order, letter, keeps] {
            order += letter;
            return keeps;
        };
    };
    const auto dispatched = [&] {
        order.clear();
        xcb_generic_event_t event{};
        order += events.nativeEventFilter({}, &event, nullptr) ? '!' : '.';
        return order;
    };
    const Handler panel(events, Panel, note('p'));
    const Handler time(events, Observer, note('t'));
    std::optional<Handler> capture(std::in_place, events, KeyCapture, note('c'));
    const Handler settings(events, Observer, note('s'));
    std::optional<Handler> hotKeys(std::in_place, events, HotKeys, note('h'));
    EXPECT_EQ(dispatched(), "tschp.");
    hotKeys.emplace(events, HotKeys, note('H', true));
    EXPECT_EQ(dispatched(), "tscH!");

    std::optional<Handler> newcomer;
    capture.emplace(events, KeyCapture, [&] {
        hotKeys.reset();
        newcomer.emplace(events, Panel, note('n'));
        return false;
    });
    EXPECT_EQ(dispatched(), "tsp.");
    capture.reset();
    EXPECT_EQ(dispatched(), "tspn.");
}

} // namespace
} // namespace quorvantel::platform
