#include "support/IsolatedHome.h"
#include "support/TestedCompositors.h"
#include "support/Unprivileged.h"

#include <gtest/gtest.h>

std::vector<std::string> quorvantel::testing::testedCompositors() {
    return {"gnome-shell"};
}

/// GNOME's programs share files with each other and with the test, so all of them run as the same
/// user, who must not be root.
int main(int argc, char** argv) {
    if (!quorvantel::testing::giveUpRoot()) {
        return EXIT_FAILURE;
    }
    const quorvantel::testing::IsolatedHome home;
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
