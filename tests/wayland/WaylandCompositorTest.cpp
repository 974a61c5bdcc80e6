#include "support/WaylandCompositor.h"

#include "support/WaitUntil.h"
#include "support/WaylandClient.h"
#include "support/WaylandInput.h"

#include <gtest/gtest.h>

namespace quorvantel::testing {
namespace {

class WaylandCompositorTest : public ::testing::TestWithParam<const char*> {};

TEST_P(WaylandCompositorTest, ShowsAnApplicationAndCarriesKeysAndClicksToIt) {
    const WaylandCompositor compositor({.program = QString::fromLatin1(GetParam())});
    WaylandInput input(compositor);
    const WaylandClient client(compositor);
    input.click({500, 400});
    input.type("hello world");
    EXPECT_TRUE(waitUntil([&] { return client.typed() == "hello world"; }));
    EXPECT_EQ(client.clicks(), 1);
}

INSTANTIATE_TEST_SUITE_P(On, WaylandCompositorTest, ::testing::Values("sway", "kwin_wayland"),
                         [](const auto& info) { return std::string(info.param); });

} // namespace
} // namespace quorvantel::testing
