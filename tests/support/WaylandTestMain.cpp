#include "support/IsolatedHome.h"

#include <gtest/gtest.h>

/// Each test starts the compositor it is about, and then the application object.
int main(int argc, char** argv) {
    const quorvantel::testing::IsolatedHome home;
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
