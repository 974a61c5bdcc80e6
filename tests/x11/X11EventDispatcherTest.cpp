#include "platform/linux/x11/X11EventDispatcher.h"

#include <QStringList>

#include <gtest/gtest.h>

#include <functional>
#include <memory>

namespace quorvantel::platform {
namespace {

using namespace Qt::StringLiterals;
using enum X11EventRank;

class X11EventDispatcherTest : public ::testing::Test {
protected:
    class Handler : public X11EventHandler {
    public:
        Handler(X11EventDispatcherTest& test, X11EventRank rank, QString handlerName)
            : X11EventHandler(test.dispatcher, rank),
              m_test(test),
              m_name(std::move(handlerName)) {}

        bool handleEvent(const xcb_generic_event_t& /*event*/) override {
            m_test.order << m_name;
            const auto handler = onEvent;
            return handler();
        }

        std::function<bool()> onEvent = [] { return false; };

    private:
        X11EventDispatcherTest& m_test;
        QString m_name;
    };

    /// The handlers that see an event, and in the end the toolkit unless one has kept it.
    QStringList dispatched() {
        order.clear();
        xcb_generic_event_t event{};
        if (!dispatcher.nativeEventFilter("xcb_generic_event_t", &event, nullptr)) {
            order << u"toolkit"_s;
        }
        return order;
    }

    X11EventDispatcher dispatcher;
    QStringList order;
};

TEST_F(X11EventDispatcherTest, AsksByRankInWhateverOrderTheyCameUntilOneKeepsIt) {
    Handler panel(*this, Panel, u"panel"_s);
    Handler time(*this, Observer, u"time"_s);
    Handler capture(*this, KeyCapture, u"capture"_s);
    const Handler settings(*this, Observer, u"settings"_s);
    Handler hotKeys(*this, HotKeys, u"hotkeys"_s);
    EXPECT_EQ(dispatched(), (QStringList{u"time"_s, u"settings"_s, u"capture"_s, u"hotkeys"_s,
                                         u"panel"_s, u"toolkit"_s}));
    hotKeys.onEvent = [] { return true; };
    EXPECT_EQ(dispatched(), (QStringList{u"time"_s, u"settings"_s, u"capture"_s, u"hotkeys"_s}));
    capture.onEvent = [] { return true; };
    EXPECT_EQ(dispatched(), (QStringList{u"time"_s, u"settings"_s, u"capture"_s}));
}

TEST_F(X11EventDispatcherTest, HandlersComeAndGoWhileOneRuns) {
    auto first = std::make_unique<Handler>(*this, HotKeys, u"first"_s);
    auto second = std::make_unique<Handler>(*this, HotKeys, u"second"_s);
    std::unique_ptr<Handler> newcomer;
    first->onEvent = [&] {
        second.reset();
        newcomer = std::make_unique<Handler>(*this, Panel, u"newcomer"_s);
        return false;
    };
    EXPECT_EQ(dispatched(), (QStringList{u"first"_s, u"toolkit"_s}));
    newcomer->onEvent = [&] {
        newcomer.reset();
        return false;
    };
    first.reset();
    EXPECT_EQ(dispatched(), (QStringList{u"newcomer"_s, u"toolkit"_s}));
    EXPECT_EQ(dispatched(), QStringList{u"toolkit"_s});
}

} // namespace
} // namespace quorvantel::platform
