#include "platform/linux/x11/X11WindowBackdrop.h"

#include "platform/linux/x11/X11EventDispatcher.h"
#include "support/ChildProcess.h"
#include "support/CompositingManager.h"
#include "support/WaitUntil.h"
#include "support/XConnection.h"

#include <QRegion>
#include <QWindow>

#include <gtest/gtest.h>

#include <functional>
#include <optional>

namespace quorvantel::platform {
namespace {

using testing::ChildProcess;
using testing::CompositingManager;
using testing::waitUntil;
using testing::XConnection;

const QByteArray blurRegion = QByteArrayLiteral("_KDE_NET_WM_BLUR_BEHIND_REGION");

/// How many requests the program's own connection sends meanwhile.
unsigned int requestsDuring(const std::function<void()>& action) {
    xcb_connection_t* const connection = X11Display::current()->connection;
    const unsigned int first = xcb_no_operation(connection).sequence;
    action();
    return xcb_no_operation(connection).sequence - first - 1;
}

class X11WindowBackdropTest : public ::testing::Test {
protected:
    X11WindowBackdropTest() {
        QObject::connect(&backdrop, &X11WindowBackdrop::changed, [this] { ++changes; });
    }

    X11EventDispatcher events;
    X11WindowBackdrop backdrop{X11Display::current().value(), events};
    int changes = 0;
};

TEST_F(X11WindowBackdropTest, FollowsTheCompositingManager) {
    EXPECT_FALSE(backdrop.isComposited());
    std::optional<CompositingManager> manager(std::in_place);
    EXPECT_TRUE(waitUntil([this] { return backdrop.isComposited(); }));
    EXPECT_EQ(changes, 1);
    EXPECT_FALSE(backdrop.offersBlur());
    EXPECT_FALSE(backdrop.castsShadows());

    manager->offerBlur();
    EXPECT_TRUE(waitUntil([this] { return backdrop.offersBlur(); }));
    const X11WindowBackdrop later(X11Display::current().value(), events);
    EXPECT_TRUE(later.isComposited());
    EXPECT_TRUE(later.offersBlur());
    manager->withdrawBlur();
    EXPECT_TRUE(waitUntil([this] { return !backdrop.offersBlur(); }));

    manager->offerBlur();
    manager.reset();
    EXPECT_TRUE(waitUntil([this] { return !backdrop.isComposited(); }));
    EXPECT_FALSE(backdrop.offersBlur());
    CompositingManager().withdrawBlur();
}

TEST_F(X11WindowBackdropTest, KnowsPicomThatShadowsByItself) {
    {
        ChildProcess picom(
            {.program = QStringLiteral("picom"),
             .arguments = {QStringLiteral("--backend"), QStringLiteral("xrender"),
                           QStringLiteral("--config"), QStringLiteral("/dev/null")}});
        ASSERT_TRUE(waitUntil([this] { return backdrop.isComposited(); }));
        EXPECT_TRUE(backdrop.castsShadows());
        EXPECT_FALSE(backdrop.offersBlur()) << "its user may have it blur nothing";
    }
    EXPECT_TRUE(waitUntil([this] { return !backdrop.isComposited(); }));
    EXPECT_FALSE(backdrop.castsShadows());
}

TEST_F(X11WindowBackdropTest, SendsNothingThatTheServerKnowsAlready) {
    const XConnection connection;
    QWindow window;
    window.create();
    const auto id = static_cast<xcb_window_t>(window.winId());
    const auto ask = [&] {
        return backdrop.isComposited() || backdrop.castsShadows() || backdrop.offersBlur();
    };
    const auto blur = [&](const QRegion& region) {
        return requestsDuring([&] { backdrop.setBlurBehind(window, region); });
    };
    EXPECT_EQ(requestsDuring(ask), 0U);
    EXPECT_EQ(blur({}), 0U);
    const QRegion bent = QRegion(0, 0, 10, 5) + QRegion(0, 5, 4, 5);
    EXPECT_EQ(blur(bent), 1U);
    EXPECT_EQ(blur(bent), 0U);
    xcb_flush(X11Display::current()->connection);
    EXPECT_TRUE(waitUntil([&] {
        return connection.property(id, blurRegion) ==
               std::vector<std::uint32_t>{0, 0, 10, 5, 0, 5, 4, 5};
    }));
    EXPECT_EQ(blur({}), 1U);
    EXPECT_EQ(blur({}), 0U);
    xcb_flush(X11Display::current()->connection);
    EXPECT_TRUE(waitUntil([&] { return connection.property(id, blurRegion).empty(); }));
}

TEST(BlurRegionInPixelsTest, LeavesNoGapBetweenRectanglesThatMeet) {
    // Steps of one to three points, as at the rounded corners of the panel.
    const QRegion steps = QRegion(3, 0, 633, 1) + QRegion(2, 1, 635, 1) + QRegion(1, 2, 637, 2) +
                          QRegion(0, 4, 639, 3) + QRegion(1, 7, 637, 3);
    for (const qreal scale : {1.0, 1.25, 1.5, 1.75, 2.0, 2.25}) {
        const std::vector<std::uint32_t> pixels = blurRegionInPixels(steps, scale);
        ASSERT_EQ(pixels.size(), 20U);
        std::uint32_t bottom = 0;
        for (std::size_t index = 0; index < pixels.size(); index += 4) {
            EXPECT_EQ(pixels[index + 1], bottom) << scale;
            bottom = pixels[index + 1] + pixels[index + 3];
        }
        EXPECT_EQ(bottom, static_cast<std::uint32_t>(qRound(10 * scale)));
        // The widest reaches from the left edge to the right one.
        EXPECT_EQ(pixels[12], 0U);
        EXPECT_EQ(pixels[14], static_cast<std::uint32_t>(qRound(639 * scale)));
    }
}

} // namespace
} // namespace quorvantel::platform
