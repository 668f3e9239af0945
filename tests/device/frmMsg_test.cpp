// SPDX-License-Identifier: MIT
#include "device/frmMsg.h"

#include <gtest/gtest.h>

namespace tolvex {
namespace {

using namespace Qt::StringLiterals;

class FrmMsgTest : public ::testing::Test {
  protected:
    bool BarShown() { return dialog.findChild<QProgressBar*>()->isVisibleTo(&dialog); }
    bool ButtonShown() { return dialog.findChild<QPushButton*>()->isVisibleTo(&dialog); }

    QWidget owner;
    int placements = 0;
    frmMsg dialog{&owner, [this](QSize) {
                      ++placements;
                      return QPoint();
                  }};
};

TEST_F(FrmMsgTest, BarAndButtonShareTheLowerBand) {
    const auto bar = [this](int value, int maximum) {
        dialog.SetProgress(true, 0, value, maximum);
        return BarShown();
    };
    const auto show = [this](MessageKind kind) {
        dialog.ShowMessage(kind, u"text"_s);
        return std::pair(BarShown(), ButtonShown());
    };
    dialog.SetProgress(true, 0, 0, 9);
    EXPECT_FALSE(dialog.isVisible());
    EXPECT_EQ(show(MessageKind::Progress), std::pair(true, false));
    EXPECT_FALSE(bar(9, 9));  // gone at the last step
    EXPECT_TRUE(bar(3, 9));
    EXPECT_EQ(show(MessageKind::Result), std::pair(false, true));
    EXPECT_EQ(show(MessageKind::Progress), std::pair(false, false));  // until the next step
    EXPECT_TRUE(bar(4, 9));
    show(MessageKind::Result);
    EXPECT_FALSE(bar(0, 9));  // an operation prepares its bar before its text
    EXPECT_EQ(show(MessageKind::Progress), std::pair(true, false));
    dialog.SetProgress(false, 0, 0, 0);
    EXPECT_FALSE(BarShown());
    EXPECT_FALSE(bar(0, 0));  // a phase of one step
    EXPECT_TRUE(bar(5, 0));
    EXPECT_EQ(placements, 1);
}

TEST_F(FrmMsgTest, OnlyAMessageOrALeftOverCanBeClosed) {
    dialog.SetBusy(true);
    dialog.ShowMessage(MessageKind::Progress, u"running"_s);
    dialog.reject();
    dialog.close();
    dialog.CloseLeftOver();
    EXPECT_TRUE(dialog.isVisible());
    dialog.SetBusy(false);
    dialog.close();
    EXPECT_FALSE(dialog.isVisible());
    dialog.CloseMessage();
    dialog.ShowMessage(MessageKind::Result, u"done"_s);
    dialog.CloseLeftOver();
    dialog.findChild<QPushButton*>()->click();
    EXPECT_FALSE(dialog.isVisible());
    dialog.SetProgress(true, 0, 1, 9);  // opens it anew, with nothing left of before
    EXPECT_TRUE(BarShown() && !ButtonShown() && placements == 3);
}

TEST_F(FrmMsgTest, TheProgressOfAMinimisedProgramWaitsForItsWindow) {
    owner.showMinimized();
    dialog.ShowMessage(MessageKind::Progress, u"running"_s);
    EXPECT_FALSE(dialog.isVisible());
    owner.showNormal();
    EXPECT_TRUE(dialog.isVisible());
    dialog.CloseMessage();
    owner.showMinimized();
    dialog.ShowMessage(MessageKind::Progress, u"running"_s);
    dialog.ShowMessage(MessageKind::Result, u"result"_s);
    EXPECT_TRUE(dialog.isVisible());
    EXPECT_EQ(dialog.focusWidget()->objectName(), u"Cmd_okm"_s);
}

TEST_F(FrmMsgTest, TheLongestMessageIsWhole) {
    const QString text =
        u"デバイス選択と、ソケット上のデバイスが一致しません。\r\n購入直後のデバイスを使用する場合は、チップイレース(<消 Erase>ボタン)を実行してください。\r\n"_s;
    dialog.ShowMessage(MessageKind::Result, text);
    const auto* label = dialog.findChild<FittedLabel*>();
    EXPECT_EQ(dialog.size(), QSize(383, 120));
    EXPECT_EQ(label->geometry(), QRect(6, 12, 361, 40));
    EXPECT_EQ(label->alignment(), Qt::AlignCenter);
    EXPECT_EQ(dialog.findChild<QPushButton*>()->geometry(), QRect(157, 63, 85, 22));
    EXPECT_EQ(dialog.findChild<QProgressBar*>()->geometry(), QRect(12, 72, 352, 14));
    EXPECT_TRUE(label->toolTip().isEmpty());  // it would hold a text that had to be cut
    EXPECT_FALSE(label->WholeText().endsWith(u'\n'));
    for (const QString& spoken :
         {dialog.accessibleName(), dialog.accessibleDescription(), label->accessibleName()}) {
        EXPECT_EQ(spoken, label->WholeText());  // heard as it is read
    }
}

}  // namespace
}  // namespace tolvex
