// SPDX-License-Identifier: MIT
#include "platform/window_dialogs.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QTemporaryDir>
#include <QTimer>

namespace tolvex {
namespace {

using namespace Qt::StringLiterals;

TEST(WindowDialogs, FiltersNameEveryPatternInBothCases) {
    const struct {
        QString pairs;
        QStringList filters;
    } cases[] = {
        {u"Hex File|*.hex;*.rom|All Files|*.*|"_s,
         {u"Hex File (*.hex *.HEX *.rom *.ROM)"_s, u"All Files (*)"_s}},
        {u"Hex File|*.HEX|All Files|*.*"_s, {u"Hex File (*.hex *.HEX)"_s, u"All Files (*)"_s}},
        {u"eep File| *.eep ;"_s, {u"eep File (*.eep *.EEP)"_s}},
        {u"Nothing|"_s, {}},
        {u"Alone"_s, {}},
        {u""_s, {}},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(NameFilters(c.pairs), c.filters) << c.pairs.toStdString();
    }
}

/// Runs `act` on the modal window that comes up next, then closes it if `act` did not.
template <typename Window, typename Act>
void WhenShown(Act act) {
    QTimer::singleShot(0, qApp, [act] {
        auto* window = qobject_cast<Window*>(QApplication::activeModalWidget());
        ASSERT_NE(window, nullptr);
        act(*window);
        window->close();
    });
}

void Press(QWidget& window, const QString& name) {
    auto* button = window.findChild<QAbstractButton*>(name);
    ASSERT_NE(button, nullptr) << name.toStdString();
    button->click();
}

class WindowDialogsTest : public ::testing::Test {
  protected:
    QWidget main_;
    WindowDialogs dialogs_{[this] { return &main_; }};
};

TEST_F(WindowDialogsTest, BoxesShowTitleIconAndTextAsTheyAre) {
    const struct {
        BoxIcon icon;
        QMessageBox::Icon shown;
    } cases[] = {{BoxIcon::Information, QMessageBox::Information},
                 {BoxIcon::Stop, QMessageBox::Critical}};
    for (const auto& c : cases) {
        bool seen = false;
        WhenShown<QMessageBox>([&](QMessageBox& box) {
            seen = true;
            EXPECT_EQ(box.windowTitle(), u"ファイル保存"_s);
            EXPECT_EQ(box.text(), u"<b>ﾌｧｲﾙ</b>"_s);
            EXPECT_EQ(box.textFormat(), Qt::PlainText);
            EXPECT_EQ(box.icon(), c.shown);
            EXPECT_EQ(box.buttons().size(), 1);
            EXPECT_EQ(box.buttons().first()->text(), u"OK"_s);
            Press(box, u"Command_ok"_s);
        });
        dialogs_.ShowBox(c.icon, u"ファイル保存"_s, u"<b>ﾌｧｲﾙ</b>"_s);
        EXPECT_TRUE(seen);
    }
    EXPECT_EQ(main_.findChildren<QMessageBox*>().size(), 0);
}

TEST_F(WindowDialogsTest, OnlyTheOkButtonMeansYes) {
    const struct {
        const char* what;
        void (*act)(QMessageBox&);
        bool answer;
    } cases[] = {
        {"OK", [](QMessageBox& box) { Press(box, u"Command_ok"_s); }, true},
        {"cancel",
         [](QMessageBox& box) {
             Press(box, u"Command_cancel"_s);
             EXPECT_EQ(box.clickedButton()->text(), u"キャンセル"_s);
         },
         false},
        {"close box", [](QMessageBox&) {}, false},
        {"rejected", [](QMessageBox& box) { box.reject(); }, false},
    };
    for (const auto& c : cases) {
        WhenShown<QMessageBox>(c.act);
        EXPECT_EQ(dialogs_.AskOkCancel(u"t"_s, u"?"_s), c.answer) << c.what;
    }
}

TEST_F(WindowDialogsTest, ABoxWhoseParentGoesAwayMeansNo) {
    auto* parent = new QWidget;
    WindowDialogs dialogs([parent] { return parent; });
    QTimer::singleShot(0, qApp, [parent] { delete parent; });
    EXPECT_FALSE(dialogs.AskOkCancel(u"t"_s, u"?"_s));
}

class FileDialogTest : public WindowDialogsTest {
  protected:
    void SetUp() override {
        for (const QString& name : {u"old.hex"_s, u"README"_s}) {
            QFile existing(folder_.filePath(name));
            ASSERT_TRUE(existing.open(QIODevice::WriteOnly));
        }
    }

    static void Accept(QFileDialog& dialog, const QString& name) {
        dialog.findChild<QLineEdit*>()->setText(name);
        QMetaObject::invokeMethod(&dialog, "accept");
    }

    QTemporaryDir folder_;
    FileDialogRequest request_{.title = u"コードファイル(*.hex)を開く"_s,
                               .directory = folder_.path(),
                               .filter = u"Hex File|*.hex;*.rom|All Files|*.*|"_s,
                               .defaultSuffix = u"hex;rom"_s,
                               .initialName = {}};
};

TEST_F(FileDialogTest, TheRequestIsWhatThePersonSees) {
    request_.initialName = u"*.hex"_s;
    WhenShown<QFileDialog>([&](QFileDialog& dialog) {
        EXPECT_EQ(dialog.windowTitle(), u"コードファイル(*.hex)を開く"_s);
        EXPECT_EQ(dialog.directory().path(), folder_.path());
        EXPECT_EQ(dialog.findChild<QLineEdit*>()->text(), u"*.hex"_s);
        EXPECT_EQ(dialog.nameFilters().size(), 2);
        EXPECT_EQ(dialog.labelText(QFileDialog::Reject), u"キャンセル"_s);
        QMetaObject::invokeMethod(&dialog, "accept");
        EXPECT_TRUE(dialog.isVisible()) << "a pattern is no name";
    });
    const FileDialogAnswer answer = dialogs_.AskSaveFile(request_);
    EXPECT_FALSE(answer.accepted);
    EXPECT_TRUE(answer.path.isEmpty());
}

TEST_F(FileDialogTest, AcceptedNamesComeBackWhole) {
    const struct {
        const char* what;
        bool save;
        QString typed;
        QString bareName;
    } cases[] = {
        {"open", false, u"old.hex"_s, u"old.hex"_s},
        {"open a missing file", false, u"gone.rom"_s, u"gone.rom"_s},
        {"replace without a question", true, u"old.hex"_s, u"old.hex"_s},
        {"suffix added to a new name", true, u"new"_s, u"new.hex"_s},
        {"not to an existing one", false, u"README"_s, u"README"_s},
    };
    for (const auto& c : cases) {
        WhenShown<QFileDialog>([&](QFileDialog& dialog) {
            Accept(dialog, c.typed);
            EXPECT_FALSE(dialog.isVisible()) << c.what;
        });
        const FileDialogAnswer answer =
            c.save ? dialogs_.AskSaveFile(request_) : dialogs_.AskOpenFile(request_);
        EXPECT_TRUE(answer.accepted) << c.what;
        EXPECT_EQ(answer.path, folder_.filePath(c.bareName)) << c.what;
        EXPECT_EQ(answer.bareName, c.bareName) << c.what;
    }
}

}  // namespace
}  // namespace tolvex
