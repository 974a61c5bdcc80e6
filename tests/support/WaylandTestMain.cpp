#include "support/IsolatedHome.h"
#include "support/TestedCompositors.h"

#include <gtest/gtest.h>

std::vector<std::string> quorvantel::testing::testedCompositors() {
    return {"sway", "kwin_wayland"};
}

/// Each test starts the compositor it is about, and then the application object.
int main(int argc, char** argv) {
    const quorvantel::testing::IsolatedHome home;
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
