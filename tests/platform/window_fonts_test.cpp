// SPDX-License-Identifier: MIT
#include "platform/window_fonts.h"

#include <gtest/gtest.h>

#include <QFontInfo>
#include <QFontMetricsF>

namespace tolvex {
namespace {

using namespace Qt::StringLiterals;

TEST(WindowFonts, ListingColumnsLineUp) {
    const QFont font = ListingFont(10);
    const QFontMetricsF metrics(font);
    const double cell = metrics.horizontalAdvance(u"0"_s);
    EXPECT_EQ(font.pointSize(), 10);
    EXPECT_GT(cell, 0);
    EXPECT_DOUBLE_EQ(metrics.horizontalAdvance(u"iW :A"_s), 5 * cell);
    if (!JapaneseFontFound()) {
        GTEST_SKIP() << "no Japanese font installed";
    }
    EXPECT_DOUBLE_EQ(metrics.horizontalAdvance(u"･ｱ"_s), 2 * cell);
    EXPECT_DOUBLE_EQ(metrics.horizontalAdvance(u"漢"_s), 2 * cell);
}

}  // namespace
}  // namespace tolvex
