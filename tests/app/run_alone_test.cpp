// SPDX-License-Identifier: MIT
// Pairs: something runs, and the user does something else.
#include <QDropEvent>
#include <QMessageBox>
#include <QMimeData>
#include <QTest>

#include "tests/app/window_bench.h"

namespace tolvex::testing {
namespace {

TEST(RunAlone, FilesDropOnAnIdleWindow) {
    const std::tuple<QString, QString, QString> cases[] = {
        {u"blink.hex"_s, u"blink.hex"_s, u"blink.eep"_s},
        {u"blink.eep"_s, u"プログラムメモリ"_s, u"blink.eep"_s},
        {u"blink.hex README.md"_s, u"プログラムメモリ"_s, u"EEPROMデータメモリ"_s}};
    for (const auto& [names, flash, eeprom] : cases) {
        RunningBench b;
        QMimeData data;
        QList<QUrl> urls;
        for (const QString& name : names.split(u' ')) {
            urls << QUrl::fromLocalFile(QStringLiteral(TOLVEX_SOURCE_DIR "/samples/") + name);
        }
        data.setUrls(urls);
        QDragEnterEvent enter({}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(&b.window, &enter);
        QDropEvent drop({}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(&b.window, &drop);
        QApplication::processEvents();
        EXPECT_EQ(enter.isAccepted(), urls.size() == 1);
        EXPECT_EQ(b.Child("frmProgram")->windowTitle().section(u'/', -1), flash);
        EXPECT_EQ(b.Child("frmEEprom")->windowTitle().section(u'/', -1), eeprom);
    }
}

// What gets past that, the sweep over everything that a user can do meets with the rule itself.
TEST(RunAlone, WhatRunsDisablesEverythingElseAndClosesMenus) {
    RunningBench b(3);
    const auto enabled = [&b] {
        const bool drops = b.window.acceptDrops();
        for (const char* other : {"frmSetting", "Program"}) {
            EXPECT_EQ(b.Find<QWidget>(other)->isEnabled(), drops) << other;
        }
        for (const char* other : {"mnuReLoad", "mnuFileOpen"}) {
            EXPECT_EQ(b.Item(other)->isEnabled(), drops) << other;
        }
        return drops;
    };
    auto* lock = b.Find<QComboBox>("Combo_LockBit");
    lock->setCurrentIndex(1);
    b.program.OpenHandedOver(QStringLiteral(TOLVEX_SOURCE_DIR "/samples/blink.hex"));
    const QString caption = b.Child("frmProgram")->windowTitle();
    EXPECT_TRUE(caption.endsWith(u"blink.hex"_s));
    auto* menu = b.Find<QMenu>("mnuFile");
    menu->popup(QPoint());
    b.clock.OnYield([&] {
        EXPECT_FALSE(enabled() || menu->isVisible());
        b.program.OpenHandedOver(b.folder.filePath(u"other.hex"_s));
        auto* box = b.window.findChild<QMessageBox*>(u"notOpened"_s);
        ASSERT_NE(box, nullptr);
        EXPECT_TRUE(box->isVisible() && box->text().contains(u"other.hex"_s));
        delete box;
        lock->setCurrentIndex(0);  // as an assistive tool may, past what is disabled
        EXPECT_EQ(lock->currentIndex(), 1);
    });
    EXPECT_TRUE(menu->isVisible());
    b.Click("Read");
    EXPECT_TRUE(enabled());
    EXPECT_GT(b.clock.Yields(), 0);
    EXPECT_EQ(b.program.Bench().state.options[OptionList::LockBit], 1);
    EXPECT_EQ(b.Child("frmProgram")->windowTitle(), caption);
}

TEST(RunAlone, TheFocusComesBackUnlessTheUserTookIt) {
    // What has the focus, what the user clicks meanwhile, what has it afterwards, what runs, and
    // the answer to a dialog under which nothing is disabled.
    const char* const cases[][5] = {{"Combo_device", "", "Combo_device", "Program", ""},
                                    {"cmdFuseRead", "", "cmdFuseRead", "cmdFuseRead", ""},
                                    {"Erase", "", "Erase", "Erase", ""},
                                    {"Combo_device", "txtEEp", "txtEEp", "Read", ""},
                                    {"txtPrg", "", "txtPrg", "Read", ""},
                                    {"txtAddress", "another window", "txtAddress", "Read", ""},
                                    {"txtAddress", "", "txtAddress", "ComSelect", "Command_ok"},
                                    {"Program", "", "Program", "mmuCominucation", "Command_ok"},
                                    {"txtAddress", "", "txtAddress", "mmuIndex", "Command1"}};
    for (const auto& [focus, clicked, afterwards, action, answer] : cases) {
        RunningBench b(3);
        b.window.activateWindow();
        b.DuringDialog([&b](QWidget&) {
            EXPECT_TRUE(b.Find<QWidget>("Program")->isEnabled() &&
                        b.Item("mnuReLoad")->isEnabled());
        });
        b.AnswerDialogs(QString::fromUtf8(answer).split(u' ', Qt::SkipEmptyParts));
        b.Find<QWidget>(focus)->setFocus();
        b.clock.OnYield([&b, other = clicked] {
            if (auto* widget = b.Find<QWidget>(other); *other != '\0' && widget != nullptr) {
                widget->setFocus();
            } else if (*other != '\0') {
                QWidget window;
                window.show();
                window.activateWindow();
                QApplication::processEvents();
                b.window.activateWindow();
                QApplication::processEvents();
            }
        });
        b.Click(action);
        if (b.Find<QDialog>("frmMsg")->isVisible()) {
            b.Click("Cmd_okm");  // it took the keyboard
        }
        EXPECT_EQ(b.Focus(), QLatin1StringView(afterwards)) << action << " under " << focus;
    }
}

TEST(RunAlone, NothingBlocksTheEventLoop) {
    RunningBench b;
    auto* box = b.Find<QPlainTextEdit>("txtPrg");
    box->selectAll();
    QTest::mousePress(box->viewport(), Qt::LeftButton, Qt::NoModifier, QPoint(20, 20));
    EXPECT_FALSE(box->textCursor().hasSelection());  // so that there is nothing to drag
    EXPECT_FALSE(box->textCursor().atEnd()) << "the press has not reached the text";
    QTest::mouseRelease(box->viewport(), Qt::LeftButton, Qt::NoModifier, QPoint(20, 20));
    for (const char* name : {"frmProgram", "frmSetting"}) {
        QMdiSubWindow* child = b.Child(name);
        QContextMenuEvent click(QContextMenuEvent::Mouse, {60, 8}, child->mapToGlobal(QPoint()));
        QApplication::sendEvent(child, &click);  // Qt's own menu would wait here for an answer
        EXPECT_TRUE(child->systemMenu()->isVisible()) << name;
        child->systemMenu()->hide();
    }
}

TEST(StartUp, AFirstStartShowsBothDialogsOnce) {
    QMap<QString, QString> values;
    for (const bool first : {true, false}) {
        WindowBench b;
        b.settings.values = values;
        b.AnswerDialogs(first ? QStringList{u"Command1"_s, u"Command_cancel"_s} : QStringList());
        b.Start();  // a modal dialog would never return
        EXPECT_EQ(b.dialogsSeen.join(u'|'), first ? u"ボードの修正|通信ポート選択"_s : QString());
        values = b.settings.values;
        EXPECT_EQ(b.window.windowTitle(), u"Tolvex Version " TOLVEX_VERSION ""_s);
        EXPECT_TRUE(b.port.Wire().isEmpty());
    }
}

}  // namespace
}  // namespace tolvex::testing
