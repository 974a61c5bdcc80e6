#include "support/IsolatedHome.h"
#include "support/XServer.h"

#include <QApplication>

#include <gtest/gtest.h>

int main(int argc, char** argv) {
    ::testing::InitGoogleTest(&argc, argv);
    if (GTEST_FLAG_GET(list_tests)) {
        return RUN_ALL_TESTS();
    }
    const quorvantel::testing::IsolatedHome home;
    const quorvantel::testing::XServer server;
    qputenv("DISPLAY", server.display());
    qputenv("QT_QPA_PLATFORM", "xcb");
    const QApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
