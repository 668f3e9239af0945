// SPDX-License-Identifier: MIT
#include "link/frmCom.h"

#include <gtest/gtest.h>

#include <QPushButton>

#include "tests/support/test_bench.h"

namespace tolvex {
namespace {

using namespace Qt::StringLiterals;
using testing::TestBench;

TEST(FrmCom, PreselectsTheStoredPortAndStoresTheChosenOne) {
    TestBench b;
    b.settings.values[u"ComNox"_s] = u"7"_s;
    frmCom dialog(b.bench.portSelection, {u"first"_s, u"second"_s}, nullptr);
    auto* list = dialog.findChild<QComboBox*>(u"Combo_com"_s);
    EXPECT_EQ(list->count(), 21);
    EXPECT_EQ(list->currentText(), u"COM7"_s);
    EXPECT_EQ(list->itemData(1, Qt::ToolTipRole).toString(), u"first"_s);
    dialog.show();
    const auto press = [&dialog](const QString& name) {
        dialog.findChild<QPushButton*>(name)->click();
    };

    list->setCurrentText(u"????"_s);
    press(u"Command_ok"_s);
    EXPECT_TRUE(dialog.isVisible()) << "for another choice";
    list->setCurrentText(u"COM4"_s);
    press(u"Command_ok"_s);
    EXPECT_FALSE(dialog.isVisible());
    EXPECT_EQ(b.settings.values[u"ComNox"_s], u"4"_s);
    EXPECT_TRUE(b.port.IsOpen());
    EXPECT_EQ(dialog.result(), int(QDialog::Accepted));

    dialog.show();
    press(u"Command_cancel"_s);
    EXPECT_FALSE(dialog.isVisible());
    EXPECT_TRUE(b.bench.state.errorFlag.Failed());
}

}  // namespace
}  // namespace tolvex
