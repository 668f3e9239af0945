// SPDX-License-Identifier: MIT
#include "link/frmCom.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QPushButton>

#include "tests/support/test_bench.h"

namespace tolvex {
namespace {

using namespace Qt::StringLiterals;
using testing::TestBench;

TEST(FrmCom, PreselectsTheStoredPortAndStoresTheChosenOne) {
    TestBench b;
    b.settings.values[u"ComNox"_s] = u"7"_s;
    frmCom dialog(b.bench.chip, {}, nullptr);
    auto* list = dialog.findChild<QComboBox*>(u"Combo_com"_s);
    EXPECT_TRUE(b.port.Calls().contains(u"configure 7"_s));
    EXPECT_EQ(list->count(), 21);
    EXPECT_EQ(list->currentText(), u"COM7"_s);
    const std::tuple<const char*, QString, bool, QString, bool> steps[] = {
        {"Command_ok", u"????"_s, true, u"7"_s, true},  // stays for another choice
        {"Command_ok", u"COM4"_s, false, u"4"_s, false},
        {"Command_cancel", u"COM5"_s, false, u"4"_s, true},
    };
    for (const auto& [button, choice, visible, stored, failed] : steps) {
        dialog.show();
        list->setCurrentText(choice);
        dialog.findChild<QPushButton*>(QLatin1StringView(button))->click();
        QCoreApplication::processEvents();  // OK is queued
        EXPECT_EQ(dialog.isVisible(), visible) << button;
        EXPECT_EQ(b.settings.values[u"ComNox"_s], stored);
        EXPECT_EQ(b.bench.state.errorFlag.Failed(), failed);
    }
    EXPECT_EQ(b.port.Calls().count(u"configure 4"_s), 2) << "to open it, and to detect";
}

}  // namespace
}  // namespace tolvex
