// SPDX-License-Identifier: MIT
// Pairs: something runs, and the person does something else.
#include <QDropEvent>
#include <QMimeData>
#include <QTest>

#include "tests/app/window_bench.h"

namespace tolvex {
namespace {

using namespace Qt::StringLiterals;
using testing::RunningBench;
using testing::WindowBench;

TEST(RunAlone, FilesDropOnAnIdleWindow) {
    const std::tuple<const char16_t*, const char16_t*, const char16_t*> cases[] = {
        {u"blink.hex", u"blink.hex", u"blink.eep"},
        {u"blink.eep", u"プログラムメモリ", u"blink.eep"},
        {u"blink.hex README.md", u"プログラムメモリ", u"EEPROMデータメモリ"}};
    for (const auto& [names, flash, eeprom] : cases) {
        RunningBench b;
        QMimeData data;
        QList<QUrl> urls;
        for (const QString& name : QString::fromUtf16(names).split(u' ')) {
            urls << QUrl::fromLocalFile(QStringLiteral(TOLVEX_SOURCE_DIR "/samples/") + name);
        }
        data.setUrls(urls);
        QDragEnterEvent enter({}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(&b.window, &enter);
        QDropEvent drop({}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(&b.window, &drop);
        QApplication::processEvents();
        EXPECT_EQ(enter.isAccepted(), urls.size() == 1);
        EXPECT_TRUE(b.Child("frmProgram")->windowTitle().endsWith(QStringView(flash)));
        EXPECT_TRUE(b.Child("frmEEprom")->windowTitle().endsWith(QStringView(eeprom)));
    }
}

/// All that a person, or an assistive tool that goes past the disabled controls, could try.
void DisturbEverything(WindowBench& b) {
    for (QAction* item : b.window.findChildren<QAction*>()) {
        const QString name = item->objectName();
        if (!name.isEmpty() && name != u"mnuFileExit" && !name.startsWith(u"mnuView")) {
            item->trigger();
        }
    }
    auto* setting = b.Find<frmSetting>("frmSetting");
    Q_EMIT setting->DeviceChosen(5);
    Q_EMIT setting->FuseReadClicked();
    Q_EMIT setting->FuseWriteClicked();
    Q_EMIT b.window.Tools().ButtonClicked(u"Clear"_s);
    Q_EMIT b.window.Panels().PanelClicked(5);
    Q_EMIT b.window.FilesDropped({QStringLiteral(TOLVEX_SOURCE_DIR "/samples/blink.eep")});
    b.Type("txtAddress", u"G"_s);
    b.Type("txtAddress", u"1"_s);
    b.Click("CmdRead");
    b.Click("CmdWrite");
    for (const char* list : {"Combo_LockBit", "Combo_FSTRT"}) {
        b.Find<QWidget>(list)->setFocus();
        QTest::keyClick(b.Find<QWidget>(list), Qt::Key_Up);
    }
    QApplication::processEvents();
}

TEST(RunAlone, NothingElseStartsOrChangesWhatRuns) {
    for (const char* button : {"Program", "cmdFuseWrite", "Read"}) {
        QStringList wires[2];
        for (const bool disturbed : {false, true}) {
            RunningBench b(3);
            b.OpenSample();
            b.Find<QComboBox>("Combo_LockBit")->setCurrentIndex(1);
            b.port.ForgetTrace();
            b.person.calls.clear();
            const auto isOpen = [&b] {
                const bool open = b.window.acceptDrops();
                EXPECT_EQ(b.Find<QWidget>("frmSetting")->isEnabled(), open);
                EXPECT_EQ(b.Find<QWidget>("Program")->isEnabled(), open);
                EXPECT_EQ(b.Item("mnuReLoad")->isEnabled(), open);
                return open;
            };
            int yields = 0;
            b.clock.OnYield([&] {
                EXPECT_FALSE(isOpen());
                if (disturbed && ++yields % 5 == 1) {
                    auto& flag = b.program.Bench().state.errorFlag.value;
                    const auto before = std::exchange(flag, 2);  // kept by who leaves it alone
                    DisturbEverything(b);
                    EXPECT_EQ(std::exchange(flag, before), 2);
                }
            });
            b.Click(button);
            EXPECT_TRUE(isOpen());
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
                                    {"cmdFuseRead", "", "cmdFuseRead", "cmdFuseRead"},
                                    {"Erase", "", "Erase", "Erase"},
                                    {"Combo_device", "txtEEp", "txtEEp", "Read"}};
    for (const auto& [focus, clicked, afterwards, action] : cases) {
        RunningBench b(3);
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
        EXPECT_EQ(b.Focus(), QLatin1StringView(afterwards));
    }
}

TEST(RunAlone, KeysTypedAheadAndOpenMenusDoNothing) {
    RunningBench b(3);
    b.port.ForgetTrace();
    auto* popup = b.Find<QMenu>("mnuFile");
    popup->popup(QPoint());
    EXPECT_TRUE(popup->isVisible());
    auto* write = b.Find<QWidget>("cmdFuseWrite");
    b.clock.OnYield([&] {
        EXPECT_FALSE(popup->isVisible());
        for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
            QApplication::postEvent(write, new QKeyEvent(type, Qt::Key_Space, Qt::NoModifier));
        }
    });
    b.Click("Read");  // which ends without a message that would process events itself
    QApplication::processEvents();
    EXPECT_TRUE(b.port.Wire().contains(u"R"_s) && b.port.Wire().filter(u"l "_s).isEmpty());
}

TEST(RunAlone, NothingBlocksTheEventLoop) {
    RunningBench b;
    auto* box = b.Find<QPlainTextEdit>("txtPrg");
    box->selectAll();
    QTest::mousePress(box->viewport(), Qt::LeftButton, Qt::NoModifier, QPoint(20, 20));
    EXPECT_FALSE(box->textCursor().hasSelection());  // so that there is nothing to drag
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
        EXPECT_EQ(b.window.windowTitle(), u"Tolvex Version 1.40.25"_s);
        EXPECT_TRUE(b.port.Wire().isEmpty());
    }
}

}  // namespace
}  // namespace tolvex
