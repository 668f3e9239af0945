// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <QCoreApplication>

int main(int argc, char** argv) {
    testing::GTEST_FLAG(filter) = "*-" TOLVEX_LEFT_OUT;
    testing::InitGoogleTest(&argc, argv);
    QCoreApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
