// SPDX-License-Identifier: MIT
#include "app/frmMain.h"

#include <gtest/gtest.h>

#include <QDate>
#include <QDir>
#include <QMenu>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QTest>
#include <QToolButton>

#include "tests/app/window_bench.h"

namespace tolvex {
namespace {

using namespace Qt::StringLiterals;
using testing::WindowBench;

TEST(MainWindow, MenusStandAsAPersonReadsThem) {
    // "-" a separator; in brackets what is hidden.
    const QString expected =
        u"ファイル(&F): コード/データファイルを開く(&O) Ctrl+O|コードファイルを開く|"
        "データファイルを開く|-|上書き保存(&S)|-|コード/データファイルを別名で保存(&A) Ctrl+S|"
        "コードファイルを別名で保存|データファイルを別名で保存|-|終了(&X)\n"
        "通信チェック(&C): COMポート選択(&C)|[-]|[ライターのLEDオン(&O)]|[ライターのLEDオフ(&F)]\n"
        "表示(&V): ツールバー(&T) *|ステータスバー(&B) *|[-]|[オプション(&O)...]\n"
        "ウインドウ(&W): ウインドウの再整列|-|設定ウインドウを開く|"
        "プログラムメモリウインドウを開く|EEPROMデータメモリウインドウを開く|[-]|"
        "[重ねて表示(&C)]|[上下に並べて表示(&H)]|[左右に並べて表示(&V)]|[アイコンの整列(&A)]\n"
        "ヘルプ(&H): [目次(&C)]|[トピックの検索(&S)...]|ボードの修正(&8)|-|ヘルプ(&H)|"
        "バージョン情報(&A)\n"
        "【HEXファイルの再ロード】(&R): \n"_s;
    WindowBench b;
    b.Start();
    QString seen;
    for (QAction* top : b.program.Window().menuBar()->actions()) {
        QStringList items;
        for (QAction* item : top->menu() == nullptr ? QList<QAction*>() : top->menu()->actions()) {
            QString text = item->isSeparator() ? u"-"_s : item->text();
            text += item->shortcut().isEmpty() ? QString() : u' ' + item->shortcut().toString();
            text += item->isChecked() ? u" *"_s : QString();
            items << (item->isVisible() ? text : u'[' + text + u']');
        }
        seen += top->text() + u": "_s + items.join(u'|') + u'\n';
    }
    EXPECT_EQ(seen.toStdString(), expected.toStdString());
}

TEST(MainWindow, ToolbarAndStatusBarStandAsAPersonReadsThem) {
    WindowBench b;
    b.Start();
    QStringList seen;
    for (QAction* action : b.program.Window().Tools().actions()) {
        QWidget* widget = b.program.Window().Tools().widgetForAction(action);
        const auto* button = qobject_cast<QToolButton*>(widget);
        seen << (button == nullptr
                     ? u"gap %1"_s.arg(widget->width())
                     : button->objectName() + u' ' + button->text() + u' ' + button->toolTip());
        EXPECT_TRUE(button == nullptr || !button->icon().isNull()) << seen.last().toStdString();
    }
    EXPECT_EQ(seen.join(u'\n').toStdString(),
              u"Open 開く コード/データファイルを開く\n"
              "Save 保存 コード/データファイルを名前をつけて保存\ngap 8\n"
              "ReLoad ReLoad HEXファイルの再ロード\ngap 8\n"
              "Program Program プログラム/EEPROMデータメモリのプログラム\n"
              "Read Read プログラム/EEPROMデータメモリのリード\n"
              "Verify Verify プログラム/EEPROMデータメモリのベリファイ\n"
              "Erase Erase プログラム/EEPROMデータメモリ Lock/Fuseビット消去\ngap 24\n"
              "Clear ﾊﾞｯﾌｧｸﾘｱ PCバッファクリア\ngap 24\nComSelect COM選択 "_s.toStdString());

    auto* first = b.Find<FittedLabel>("Panel1");
    EXPECT_EQ(first->accessibleName(), u"メッセージ"_s);
    b.program.Window().SetStatusText(1, u"短い"_s);
    EXPECT_TRUE(first->toolTip().isEmpty() && first->accessibleName() == u"短い");
    const QString text = u"とても長いメッセージ。"_s.repeated(40);
    b.program.Window().SetStatusText(1, text);
    EXPECT_TRUE(first->text().endsWith(u'…') && first->toolTip() == text);
    EXPECT_LE(first->fontMetrics().horizontalAdvance(first->text()), first->width() - 8);
    EXPECT_EQ(b.Panel(4), QDate::currentDate().toString(u"yyyy/MM/dd"_s));
}

/// Everything that a command can show or do.
QString Outcome(WindowBench& b) {
    QStringList seen = b.person.calls + b.dialogsSeen;
    seen << b.help.shown.section(u'/', -1) << b.Message() << (b.board.LedIsOn() ? u"lit"_s : u""_s);
    seen << (b.program.Window().Tools().isHidden() ? u"no toolbar"_s : u""_s);
    seen << (b.program.Window().Panels().isHidden() ? u"no status bar"_s : u""_s);
    seen << b.Panel(1);
    seen.removeAll(QString());
    return seen.join(u'|');
}

constexpr char kNothingOpen[] = "指定されたファイルを開くことができませんでした。";
constexpr char kOpenBoth[] =
    "open dialog コードファイル ＆ データファイルを開く|"
    "指定されたファイルを開くことができませんでした。";
constexpr char kNoHelp[] =
    "box Information Tolvex Version 1.40.25|ﾍﾙﾌﾟの目次を表示できません。 "
    "このﾌﾟﾛｼﾞｪｸﾄに関連付けられたﾍﾙﾌﾟが存在しません。";

TEST(MainWindow, EachCommandDoesWhatItSays) {
    // A menu item, a button or a key; the button pressed in the window that comes up; what is seen.
    const char* const cases[][3] = {
        {"mnuFileOpen", "", kOpenBoth},
        {"mnuFileOpenCode", "", "open dialog コードファイル(*.hex)を開く"},
        {"mnuFileOpenData", "", "open dialog データファイル(*.eep)を開く"},
        {"Ctrl+O", "", kOpenBoth},
        {"Open", "", kOpenBoth},
        {"mnuFileSave", "", "ファイルがオープンされていません．|ファイルがオープンされていません"},
        {"mnuFileSaveAs", "", "save dialog コードファイル ＆ データファイルの保存"},
        {"mnuFileSaveAsCode", "", "save dialog コードファイル(*.hex)の保存"},
        {"mnuFileSaveAsData", "", "save dialog データファイル(*.eep)の保存"},
        {"Ctrl+S", "", "save dialog コードファイル ＆ データファイルの保存"},
        {"Save", "", "save dialog コードファイル ＆ データファイルの保存"},
        {"mnuReLoad", "", kNothingOpen},
        {"ReLoad", "", kNothingOpen},
        {"mmuCominucation", "Command_cancel",
         "通信ポート選択|ライター接続確認が終了していません。"},
        {"ComSelect", "Command_cancel", "通信ポート選択|ライター接続確認が終了していません。"},
        {"mmuLEDon", "", "lit"},
        {"mmuLEDoff", "", ""},
        {"mnuViewToolbar", "", "no toolbar"},
        {"mnuViewStatusBar", "", "no status bar"},
        {"mnuViewOptions", "", "box Information Tolvex|ｵﾌﾟｼｮﾝ ﾀﾞｲｱﾛｸﾞのｺｰﾄﾞをここに記述します !"},
        {"mmuIndex", "Command1", "ボードの修正"},
        {"mnuHelpContents", "", kNoHelp},
        {"mnuHelpSearch", "", kNoHelp},
        {"mnuHelpSub", "", "tolvex.hlp"},
        {"mnuHelpAbout", "cmdOK", "バージョン情報"},
        {"Clear", "", "バッファーをクリアしました。"},
        {"Read", "", "リード終了しました。"},
        {"Verify", "", "ベリファイ　FLASH : OK / EEPROM : OK|ベリファイ終了しました。"},
        {"Erase", "", "Lock bit & Flash & EEPROM メモリクリアー完了。"},
        {"cmdFuseRead", "", "Lock/Fuse bit リードが完了しました。|ライタを検出しました。 COM1"},
        {"cmdFuseWrite", "", "Lock/Fuse bit ライトが完了しました。|ライタを検出しました。 COM1"},
    };
    for (const auto& [name, answer, outcome] : cases) {
        WindowBench b(3);
        b.Start();
        b.port.Open();
        if (QByteArray(name) == "mmuLEDoff") {
            b.program.Bench().commands.LedOn();
        }
        b.AnswerDialogs(QString::fromUtf8(answer).split(u' ', Qt::SkipEmptyParts));
        if (QByteArray(name).startsWith("Ctrl")) {
            QTest::keyClick(&b.program.Window(), name[5], Qt::ControlModifier);
            QApplication::processEvents();
        } else {
            b.Item(name) != nullptr ? b.Choose(name) : b.Click(name);
        }
        EXPECT_EQ(Outcome(b).toStdString(), outcome) << name;
    }
}

TEST(MainWindow, APanelThatBeginsWithComOpensThePortDialog) {
    const std::tuple<int, const char16_t*, Qt::MouseButton, bool> cases[] = {
        {5, u"COM:1", Qt::LeftButton, true},
        {5, u"COM:1", Qt::NoButton, true},  // by keyboard
        {5, u"COM:1", Qt::RightButton, false},
        {5, u"", Qt::LeftButton, false},
        {1, u"ライタを検出しました。 COM1", Qt::LeftButton, false}};
    for (const auto& [number, text, button, opens] : cases) {
        WindowBench b;
        b.Start();
        b.program.Window().SetStatusText(number, QString::fromUtf16(text));
        b.AnswerDialogs(opens ? QStringList{u"Command_cancel"_s} : QStringList());
        auto* panel = b.Find<QWidget>(qPrintable(u"Panel%1"_s.arg(number)));
        if (button == Qt::NoButton) {
            b.program.Window().Panels().FocusFirst();
            for (int i = 1; i < number; ++i) {
                QTest::keyClick(b.program.Window().focusWidget(), Qt::Key_Right);
            }
            QTest::keyClick(b.program.Window().focusWidget(), Qt::Key_Space);
        } else {
            QTest::mouseClick(panel, button);
        }
        QApplication::processEvents();
        EXPECT_EQ(b.dialogsSeen.size(), opens ? 1 : 0) << number << button;
    }
}

TEST(MainWindow, F6GoesRoundByKeyboard) {
    WindowBench b;
    b.Start();
    b.Child("frmEEprom")->close();
    b.program.Window().Panels().hide();
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    const auto seen = [&b] {
        QWidget* focus = b.program.Window().focusWidget();
        return focus == b.program.Window().menuBar()
                   ? b.program.Window().menuBar()->activeAction()->text()
                   : focus->objectName();
    };
    b.Find<QWidget>("txtPrg")->setFocus();
    QStringList round;
    for (int i = 0; i < 4; ++i) {
        QTest::keyClick(&b.program.Window(), Qt::Key_F6);
        round << seen();
    }
    EXPECT_EQ(round.join(u' ').toStdString(),
              u"ファイル(&F) Open Combo_device txtPrg"_s.toStdString());
    QTest::keyClick(&b.program.Window(), Qt::Key_F6, Qt::ShiftModifier);
    QTest::keyClick(&b.program.Window(), Qt::Key_F6, Qt::ShiftModifier);
    EXPECT_EQ(seen(), u"Open"_s);
    QTest::keyClick(b.Find<QWidget>("Open"), Qt::Key_Space);
    QApplication::processEvents();
    EXPECT_EQ(b.person.fileRequests.size(), 1);
    EXPECT_EQ(seen(), u"Open"_s);
    QTest::keyClick(&b.program.Window(), Qt::Key_F6, Qt::ShiftModifier);
    QTest::keyClick(b.program.Window().menuBar(), Qt::Key_Escape);
    EXPECT_EQ(seen(), u"Open"_s);  // where it was before the menus
}

TEST(MainWindow, ProgramsAndVerifiesByItsButtons) {
    WindowBench b;
    b.Start();
    b.OpenSample();
    EXPECT_TRUE(b.Child("frmProgram")->windowTitle().endsWith(u"samples/blink.hex"));
    EXPECT_TRUE(b.Child("frmEEprom")->windowTitle().endsWith(u"samples/blink.eep"));
    EXPECT_TRUE(b.Find<QPlainTextEdit>("txtPrg")->toPlainText().startsWith(u"0000: E0"_s));
    b.Click("Program");
    EXPECT_EQ(b.Panel(1), u"プログラム終了しました。"_s);
    EXPECT_EQ(b.Message(), u"ベリファイ　FLASH : OK / EEPROM : OK"_s);
    EXPECT_EQ(b.chip.ReadFlashHigh(0), 0xE0);
    EXPECT_EQ(b.Child("frmVerify"), nullptr);
    b.Click("Cmd_okm");
    b.Find<QLineEdit>("txtAddress")->setText(u"3f"_s);
    b.Find<QLineEdit>("txtData")->setText(u"a5"_s);
    b.Click("CmdWrite");
    b.Find<QLineEdit>("txtData")->setText(u""_s);
    b.Click("CmdRead");
    EXPECT_EQ(b.Find<QLineEdit>("txtData")->text(), u"A5"_s);
    b.Click("Verify");
    ASSERT_NE(b.Child("frmVerify"), nullptr);
    EXPECT_EQ(b.program.Window().Area().activeSubWindow(), b.Child("frmVerify"));
    EXPECT_TRUE(b.Find<QPlainTextEdit>("rtVerify")
                    ->toPlainText()
                    .contains(u"EEPROM Address(byte) = 003F  Original Data = A5   NG Data = FF"_s));
}

TEST(MainWindow, ThePortDialogOffersWhatIsThere) {
    WindowBench b;
    QDir(b.folder.path()).mkpath(u"ports"_s);
    QFile::link(u"/dev/null"_s, b.folder.filePath(u"ports/com7"_s));
    b.settings.values[u"ComNox"_s] = u"7"_s;
    b.Start();
    b.DuringDialog([&b](QWidget& dialog) {
        auto* list = dialog.findChild<QComboBox*>(u"Combo_com"_s);
        EXPECT_EQ(list->count(), 21);
        EXPECT_EQ(list->itemText(0), u"????"_s);
        EXPECT_EQ(list->currentText(), u"COM7"_s);
        EXPECT_EQ(list->itemData(7, Qt::ToolTipRole).toString(),
                  b.folder.filePath(u"ports/com7"_s));
        EXPECT_EQ(dialog.focusWidget(), list);
        list->setCurrentIndex(0);
    });
    b.AnswerDialogs({u"Command_ok"_s, u"Command_cancel"_s});  // "????" keeps it open
    b.Click("ComSelect");
    EXPECT_EQ(b.person.calls,
              QStringList{u"box Stop ポートオープン失敗|COM? のオープンに失敗しました。\r"
                          "ポート番号を再設定してください。"_s});
    EXPECT_TRUE(b.program.Bench().state.errorFlag.Failed());
    b.DuringDialog(
        [](QWidget& dialog) { dialog.findChild<QComboBox*>(u"Combo_com"_s)->setCurrentIndex(12); });
    b.AnswerDialogs({u"Command_ok"_s});
    b.Click("ComSelect");
    EXPECT_EQ(b.settings.values[u"ComNox"_s], u"12"_s);
    EXPECT_EQ(b.Panel(5), u"COM:12"_s);
    EXPECT_EQ(b.Panel(1), u"ライタを検出しました。 COM12"_s);
}

}  // namespace
}  // namespace tolvex
