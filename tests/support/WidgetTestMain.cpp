#include "support/IsolatedHome.h"

#include <QApplication>

#include <gtest/gtest.h>

int main(int argc, char** argv) {
    const quorvantel::testing::IsolatedHome home;
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
