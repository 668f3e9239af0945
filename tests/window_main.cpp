// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <QApplication>

using namespace Qt::StringLiterals;

int main(int argc, char** argv) {
    testing::GTEST_FLAG(filter) = "*-" TOLVEX_LEFT_OUT;
    testing::InitGoogleTest(&argc, argv);
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    QApplication::setStyle(u"fusion"_s);  // the one whose pixels and sizes the tests look at
    QApplication application(argc, argv);
    application.setQuitOnLastWindowClosed(false);
    return RUN_ALL_TESTS();
}
