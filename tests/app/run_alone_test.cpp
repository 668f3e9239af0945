// SPDX-License-Identifier: MIT
// Pairs: something runs, and the person does something else.
#include <gtest/gtest.h>

#include <QDropEvent>
#include <QLineEdit>
#include <QMenu>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QTest>

#include "tests/app/window_bench.h"

namespace tolvex {
namespace {

using namespace Qt::StringLiterals;
using testing::WindowBench;

/// Drags samples over the window and drops them.
bool Drop(WindowBench& b, const QStringList& names) {
    QMimeData data;
    QList<QUrl> urls;
    for (const QString& name : names) {
        urls << QUrl::fromLocalFile(QStringLiteral(TOLVEX_SOURCE_DIR "/samples/") + name);
    }
    data.setUrls(urls);
    QDragEnterEvent enter(QPoint(), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&b.program.Window(), &enter);
    QDropEvent drop(QPoint(), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&b.program.Window(), &drop);
    QApplication::processEvents();
    return enter.isAccepted();
}

TEST(RunAlone, FilesDropOnAnIdleWindow) {
    const std::tuple<QStringList, const char*, const char*> cases[] = {
        {{u"blink.hex"_s}, "blink.hex", "blink.eep"},
        {{u"blink.eep"_s}, "プログラムメモリ", "blink.eep"},
        {{u"blink.hex"_s, u"blink.eep"_s}, "blink.hex", "blink.eep"},
        {{u"blink.hex"_s, u"README.md"_s}, "プログラムメモリ", "EEPROMデータメモリ"}};
    for (const auto& [names, flash, eeprom] : cases) {
        WindowBench b;
        b.Start();
        EXPECT_EQ(Drop(b, names), names.last() != u"README.md");
        EXPECT_TRUE(b.Child("frmProgram")->windowTitle().endsWith(QString::fromUtf8(flash)));
        EXPECT_TRUE(b.Child("frmEEprom")->windowTitle().endsWith(QString::fromUtf8(eeprom)));
    }
}

/// All that a person, or an assistive tool that goes past the disabled controls, could try.
void DisturbEverything(WindowBench& b) {
    for (QAction* item : b.program.Window().findChildren<QAction*>()) {
        const QString name = item->objectName();
        if (!name.isEmpty() && name != u"mnuFileExit" && !name.startsWith(u"mnuView")) {
            item->trigger();
        }
    }
    auto* setting = b.Find<frmSetting>("frmSetting");
    Q_EMIT setting->DeviceChosen(5);
    Q_EMIT setting->FuseReadClicked();
    Q_EMIT setting->FuseWriteClicked();
    Q_EMIT b.program.Window().Tools().ButtonClicked(u"Clear"_s);
    Q_EMIT b.program.Window().Panels().PanelClicked(5);
    Q_EMIT b.program.Window().FilesDropped(
        {QStringLiteral(TOLVEX_SOURCE_DIR "/samples/blink.eep")});
    b.Find<QLineEdit>("txtAddress")->setText(u"G"_s);
    b.Find<QLineEdit>("txtAddress")->setText(u"1"_s);
    b.Click("CmdRead");
    b.Click("CmdWrite");
    for (const char* list : {"Combo_LockBit", "Combo_FSTRT"}) {
        auto* box = b.Find<QComboBox>(list);
        box->setFocus();
        QTest::keyClick(box, Qt::Key_Up);
    }
    QApplication::processEvents();
}

TEST(RunAlone, NothingElseStartsOrChangesWhatRuns) {
    for (const char* button : {"Program", "cmdFuseWrite", "Read", "Erase"}) {
        QStringList wires[2];
        for (const bool disturbed : {false, true}) {
            WindowBench b(3);
            b.Start();
            b.OpenSample();
            b.Find<QComboBox>("Combo_LockBit")->setCurrentIndex(1);
            b.port.ForgetTrace();
            b.person.calls.clear();
            const auto inert = [&b](bool yes) {
                for (const char* name : {"frmSetting", "Program"}) {
                    EXPECT_NE(b.Find<QWidget>(name)->isEnabled(), yes) << name;
                }
                for (const char* name : {"mnuFileOpen", "mnuReLoad", "mmuIndex"}) {
                    EXPECT_NE(b.Item(name)->isEnabled(), yes) << name;
                }
                EXPECT_NE(b.program.Window().acceptDrops(), yes);
                EXPECT_TRUE(b.Item("mnuFileExit")->isEnabled());
            };
            int yields = 0;
            b.clock.OnYield([&] {
                inert(true);
                if (disturbed && ++yields % 5 == 1) {
                    b.program.Bench().state.errorFlag.value += 2;  // kept by who leaves it alone
                    DisturbEverything(b);
                    EXPECT_GE(b.program.Bench().state.errorFlag.value, 2);
                    b.program.Bench().state.errorFlag.value -= 2;
                }
            });
            b.Click(button);
            inert(false);
            wires[disturbed] = b.port.Wire();
            EXPECT_TRUE(b.person.calls.isEmpty() && b.dialogsSeen.isEmpty());
        }
        EXPECT_FALSE(wires[0].isEmpty());
        EXPECT_EQ(wires[0], wires[1]) << button;
    }
}

TEST(RunAlone, TheFocusComesBackUnlessThePersonTookIt) {
    // What has the focus, what the person clicks meanwhile, what has it afterwards, what runs.
    const char* const cases[][4] = {{"Combo_device", "", "Combo_device", "Program"},
                                    {"Combo_LockBit", "", "Combo_LockBit", "Verify"},
                                    {"cmdFuseRead", "", "cmdFuseRead", "cmdFuseRead"},
                                    {"txtAddress", "", "txtAddress", "Clear"},
                                    {"Erase", "", "Erase", "Erase"},
                                    {"txtPrg", "", "txtPrg", "Read"},
                                    {"Combo_device", "txtEEp", "txtEEp", "Read"}};
    for (const auto& [focus, clicked, afterwards, action] : cases) {
        WindowBench b(3);
        b.Start();
        b.Find<QWidget>(focus)->setFocus();
        b.clock.OnYield([&b, other = clicked] {
            if (*other != '\0') {
                b.Find<QWidget>(other)->setFocus();
            }
        });
        b.Click(action);
        if (b.Find<QDialog>("frmMsg") != nullptr) {
            b.Click("Cmd_okm");  // it took the keyboard
        }
        ASSERT_NE(b.program.Window().focusWidget(), nullptr) << focus;
        EXPECT_EQ(b.program.Window().focusWidget()->objectName(), QString::fromUtf8(afterwards));
    }
}

TEST(RunAlone, KeysTypedAheadAndOpenMenusDoNothing) {
    WindowBench b(3);
    b.Start();
    b.port.ForgetTrace();
    QMenu popup;
    popup.addAction(u"x"_s);
    popup.popup(QPoint());
    auto* write = b.Find<QWidget>("cmdFuseWrite");
    b.clock.OnYield([&] {
        EXPECT_FALSE(popup.isVisible());
        for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
            QApplication::postEvent(write, new QKeyEvent(type, Qt::Key_Space, Qt::NoModifier));
        }
    });
    b.Click("cmdFuseRead");
    QApplication::processEvents();
    EXPECT_TRUE(b.port.Wire().filter(u"F"_s).size() == 1 && b.port.Wire().filter(u"l"_s).isEmpty());
}

TEST(RunAlone, NothingBlocksTheEventLoop) {
    WindowBench b;
    b.Start();
    auto* box = b.Find<QPlainTextEdit>("txtPrg");
    box->selectAll();
    QTest::mousePress(box->viewport(), Qt::LeftButton, Qt::NoModifier, QPoint(20, 20));
    EXPECT_FALSE(box->textCursor().hasSelection());  // so that there is nothing to drag
    QTest::mouseRelease(box->viewport(), Qt::LeftButton, Qt::NoModifier, QPoint(20, 20));
    for (const char* name : {"frmProgram", "frmSetting"}) {
        QMdiSubWindow* child = b.Child(name);
        QContextMenuEvent click(QContextMenuEvent::Mouse, QPoint(60, 8),
                                child->mapToGlobal(QPoint(60, 8)));
        QApplication::sendEvent(child, &click);  // Qt's own menu would wait here for an answer
        EXPECT_TRUE(child->systemMenu()->isVisible()) << name;
        child->systemMenu()->hide();
    }
}

TEST(RunAlone, AShutdownInTheMiddleLeavesNoFileAndNoWindow) {
    for (const int yields : {1, 5, 12, 20}) {
        WindowBench b;
        b.Start();
        b.OpenSample();
        b.board.SetFaultFrom(14, FaultKind::Silent);  // every command would wait for its time-out
        int count = 0;
        b.clock.OnYield([&] {
            if (++count == yields) {
                b.program.Window().close();
            }
        });
        b.Click("Program");
        EXPECT_TRUE(b.clock.Ended()) << yields;
        EXPECT_FALSE(b.port.IsOpen());
        EXPECT_TRUE(b.ListingFiles().isEmpty());
        EXPECT_FALSE(b.program.Window().isVisible());
        EXPECT_EQ(b.Find<QDialog>("frmMsg"), nullptr);
    }
}

TEST(StartUp, AFirstStartShowsBothDialogsOnce) {
    WindowBench b;
    b.settings.values.clear();
    b.AnswerDialogs({u"Command1"_s, u"Command_cancel"_s});
    b.Start();
    EXPECT_EQ(b.dialogsSeen, (QStringList{u"ボードの修正"_s, u"通信ポート選択"_s}));
    EXPECT_EQ(b.settings.values, (QMap<QString, QString>{{u"Index_First_Flag"_s, u"1"_s},
                                                         {u"Index_Com_Flag"_s, u"1"_s},
                                                         {u"device"_s, u"0"_s}}));
    EXPECT_EQ(b.program.Window().windowTitle(), u"Tolvex Version 1.40.25"_s);
    EXPECT_TRUE(b.port.Wire().isEmpty());
    WindowBench again;
    again.settings.values = b.settings.values;
    again.Start();  // a modal dialog would never return
    EXPECT_TRUE(again.dialogsSeen.isEmpty());
}

}  // namespace
}  // namespace tolvex
