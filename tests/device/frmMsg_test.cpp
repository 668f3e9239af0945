// SPDX-License-Identifier: MIT
#include "device/frmMsg.h"

#include <gtest/gtest.h>

#include "device/message_window.h"

namespace tolvex {
namespace {

using namespace Qt::StringLiterals;

class MessageWindowTest : public ::testing::Test {
  protected:
    frmMsg* Window() { return parent.findChild<frmMsg*>(); }
    bool BarShown() { return Window()->findChild<QProgressBar*>()->isVisibleTo(Window()); }
    bool ButtonShown() { return Window()->findChild<QPushButton*>()->isVisibleTo(Window()); }

    QWidget parent;
    int placements = 0;
    MessageWindow messages{&parent, [this](QSize) {
                               ++placements;
                               return QPoint();
                           }};
};

TEST_F(MessageWindowTest, BarAndButtonShareTheLowerBand) {
    const auto bar = [this](int value, int maximum) {
        messages.SetProgress(true, 0, value, maximum);
        return BarShown();
    };
    const auto show = [this](MessageMode mode) {
        messages.ShowMessage(mode, u"text"_s);
        return std::pair(BarShown(), ButtonShown());
    };
    messages.SetProgress(true, 0, 0, 9);
    EXPECT_FALSE(Window()->isVisible());
    EXPECT_EQ(show(MessageMode::Progress), std::pair(true, false));
    EXPECT_FALSE(bar(9, 9));  // gone at the last step
    EXPECT_TRUE(bar(3, 9));
    EXPECT_EQ(show(MessageMode::Message), std::pair(false, true));
    EXPECT_EQ(show(MessageMode::Progress), std::pair(false, false));  // until the next step
    EXPECT_TRUE(bar(4, 9));
    show(MessageMode::Message);
    EXPECT_FALSE(bar(0, 9));  // an operation prepares its bar before its text
    EXPECT_EQ(show(MessageMode::Progress), std::pair(true, false));
    messages.SetProgress(false, 0, 0, 0);
    EXPECT_FALSE(BarShown());
    EXPECT_FALSE(bar(0, 0));  // a phase of one step
    EXPECT_TRUE(bar(5, 0));
    EXPECT_EQ(placements, 1);
}

TEST_F(MessageWindowTest, OnlyAMessageOrALeftOverCanBeClosed) {
    messages.SetBusy(true);
    messages.ShowMessage(MessageMode::Progress, u"running"_s);
    Window()->reject();
    Window()->close();
    ASSERT_NE(Window(), nullptr);
    EXPECT_TRUE(Window()->isVisible());
    messages.SetBusy(false);
    Window()->close();
    EXPECT_FALSE(Window()->isVisible());
    messages.CloseMessage();
    messages.ShowMessage(MessageMode::Message, u"done"_s);
    Window()->findChild<QPushButton*>()->click();
    EXPECT_FALSE(Window()->isVisible());
    messages.Retire();
    messages.ShowMessage(MessageMode::Message, u"too late"_s);
    EXPECT_EQ(Window(), nullptr);
}

TEST_F(MessageWindowTest, TheProgressOfAMinimisedProgramWaitsForItsWindow) {
    parent.showMinimized();
    messages.ShowMessage(MessageMode::Progress, u"running"_s);
    EXPECT_FALSE(Window()->isVisible());
    parent.showNormal();
    EXPECT_TRUE(Window()->isVisible());
    messages.CloseMessage();
    parent.showMinimized();
    messages.ShowMessage(MessageMode::Progress, u"running"_s);
    messages.ShowMessage(MessageMode::Message, u"result"_s);
    EXPECT_TRUE(Window()->isVisible());
    EXPECT_EQ(Window()->focusWidget()->objectName(), u"Cmd_okm"_s);
}

TEST_F(MessageWindowTest, TheLongestMessageIsWhole) {
    const QString text =
        u"デバイス選択と、ソケット上のデバイスが一致しません。\r\n購入直後のデバイスを使用する場合は、チップイレース(<消 Erase>ボタン)を実行してください。\r\n"_s;
    messages.ShowMessage(MessageMode::Message, text);
    const auto* label = Window()->findChild<FittedLabel*>();
    EXPECT_EQ(Window()->size(), QSize(383, 120));
    EXPECT_TRUE(label->toolTip().isEmpty());  // it would hold a text that had to be cut
    EXPECT_FALSE(label->WholeText().endsWith(u'\n'));
    for (const QString& spoken :
         {Window()->accessibleName(), Window()->accessibleDescription(), label->accessibleName()}) {
        EXPECT_EQ(spoken, label->WholeText());  // heard as it is read
    }
}

}  // namespace
}  // namespace tolvex
