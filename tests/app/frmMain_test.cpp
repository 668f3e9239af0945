// SPDX-License-Identifier: MIT
#include "app/frmMain.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QComboBox>
#include <QDropEvent>
#include <QFile>
#include <QLineEdit>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMenuBar>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>

#include "tests/app/window_bench.h"
#include "widgets/twips.h"

namespace tolvex {
namespace {

using namespace Qt::StringLiterals;
using testing::Chosen;
using testing::WindowBench;

const QString kBlink = QStringLiteral(TOLVEX_SOURCE_DIR "/samples/blink.hex");

QMdiSubWindow* Child(WindowBench& b, const char* name) {
    for (QMdiSubWindow* window : b.program.Window().Area().subWindowList()) {
        if (window->widget()->objectName() == QString::fromLatin1(name)) {
            return window;
        }
    }
    return nullptr;
}

QRect Twips(int left, int top, int width, int height) {
    return {PixelsFromTwips(left), PixelsFromTwips(top), PixelsFromTwips(width),
            PixelsFromTwips(height)};
}

TEST(Menus, StandAsAPersonReadsThem) {
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

TEST(Menus, ItemsDoWhatTheySay) {
    WindowBench b;
    b.Start();
    frmMain& window = b.program.Window();
    struct Toggle {
        const char* item;
        QWidget* bar;
    };
    for (const Toggle& c :
         {Toggle{"mnuViewToolbar", &window.Tools()}, {"mnuViewStatusBar", &window.Panels()}}) {
        b.Item(c.item)->trigger();
        EXPECT_TRUE(c.bar->isHidden() && !b.Item(c.item)->isChecked()) << c.item;
        window.SetStatusText(1, u"while hidden"_s);
        b.Item(c.item)->trigger();
        EXPECT_TRUE(!c.bar->isHidden() && b.Item(c.item)->isChecked()) << c.item;
        EXPECT_EQ(b.Panel(1), u"while hidden"_s);
    }
    b.Item("mnuHelpSub")->trigger();
    EXPECT_EQ(b.help.shown, b.folders.program + u"tolvex.hlp"_s);
    b.Item("mnuHelpContents")->trigger();
    EXPECT_EQ(b.person.calls.last(),
              u"box Information Tolvex Version 1.40.25|ﾍﾙﾌﾟの目次を表示できません。 "
              "このﾌﾟﾛｼﾞｪｸﾄに関連付けられたﾍﾙﾌﾟが存在しません。"_s);
    b.AnswerDialogs({u"Command_cancel"_s, u"Command1"_s, u"cmdOK"_s});
    b.Item("mmuCominucation")->trigger();
    EXPECT_EQ(b.Panel(1), u"ライター接続確認が終了していません。"_s);
    b.Item("mmuIndex")->trigger();
    b.Item("mnuHelpAbout")->trigger();
    EXPECT_EQ(b.dialogsSeen,
              (QStringList{u"通信ポート選択"_s, u"ボードの修正"_s, u"バージョン情報"_s}));
    b.port.Open();
    b.Item("mmuLEDon")->trigger();
    EXPECT_TRUE(b.board.LedIsOn());
    b.Item("mmuLEDoff")->trigger();
    EXPECT_FALSE(b.board.LedIsOn());
}

TEST(StatusBar, OnlyAPanelThatBeginsWithComOpensThePortDialog) {
    WindowBench b;
    b.Start();
    b.program.Window().SetStatusText(1, u"ライタを検出しました。 COM1"_s);
    Q_EMIT b.program.Window().Panels().PanelClicked(1);
    Q_EMIT b.program.Window().Panels().PanelClicked(5);
    b.program.Window().SetStatusText(5, u"COM:1"_s);
    b.AnswerDialogs({u"Command_cancel"_s});
    Q_EMIT b.program.Window().Panels().PanelClicked(5);
    EXPECT_EQ(b.dialogsSeen, (QStringList{u"通信ポート選択"_s}));
}

TEST(MainJob, OpensProgramsAndVerifiesByItsButtons) {
    WindowBench b;
    b.Start();
    b.person.fileAnswers = {Chosen(kBlink)};
    b.Click("Open");
    EXPECT_EQ(Child(b, "frmProgram")->windowTitle(), u"Program : "_s + kBlink);
    EXPECT_TRUE(b.Find<QPlainTextEdit>("txtPrg")->toPlainText().startsWith(u"0000: E0"_s));
    bool busySeen = false;
    b.clock.OnYield([&] {
        busySeen = true;
        EXPECT_FALSE(b.program.Window().Tools().isEnabled());
        EXPECT_FALSE(b.Item("mnuFileOpen")->isEnabled() || b.Item("mnuReLoad")->isEnabled());
        EXPECT_FALSE(b.Find<QComboBox>("Combo_device")->isEnabled());
        EXPECT_FALSE(b.Find<QPushButton>("cmdFuseWrite")->isEnabled());
        EXPECT_FALSE(b.Find<QPushButton>("CmdWrite")->isEnabled());
        EXPECT_TRUE(b.Item("mnuFileExit")->isEnabled() && b.Item("mnuViewToolbar")->isEnabled());
    });
    b.Click("Program");
    EXPECT_TRUE(busySeen);
    EXPECT_TRUE(b.program.Window().Tools().isEnabled());
    EXPECT_EQ(b.Panel(1), u"プログラム終了しました。"_s);
    EXPECT_EQ(b.Find<FittedLabel>("txtMsg")->WholeText(),
              u"ベリファイ　FLASH : OK / EEPROM : OK"_s);
    EXPECT_EQ(b.chip.ReadFlashHigh(0), 0xE0);
    EXPECT_EQ(b.chip.ReadEeprom(0), 0x32);
    EXPECT_EQ(Child(b, "frmVerify"), nullptr);

    b.Click("Cmd_okm");
    b.Find<QLineEdit>("txtAddress")->setText(u"3f"_s);
    b.Find<QLineEdit>("txtData")->setText(u"a5"_s);
    b.Click("CmdWrite");
    b.Click("Verify");
    ASSERT_NE(Child(b, "frmVerify"), nullptr);
    EXPECT_TRUE(b.Find<QPlainTextEdit>("rtVerify")
                    ->toPlainText()
                    .contains(u"EEPROM Address(byte) = 003F  Original Data = A5   NG Data = FF"_s));
}

TEST(MainJob, ADroppedFileOpensAsIfChosen) {
    WindowBench b;
    b.Start();
    for (const QString& path : {u"/etc/hostname"_s, kBlink}) {
        QMimeData data;
        data.setUrls({QUrl::fromLocalFile(path)});
        QDragEnterEvent enter(QPoint(), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(&b.program.Window(), &enter);
        EXPECT_EQ(enter.isAccepted(), path == kBlink);
        QDropEvent drop(QPoint(), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(&b.program.Window(), &drop);
    }
    EXPECT_EQ(Child(b, "frmProgram")->windowTitle(), u"Program : "_s + kBlink);
    EXPECT_EQ(b.Panel(1), u"ファイルをオープンしました。"_s);
}

TEST(ChildWindows, ComeBackToTheirPlaceFromAnyState) {
    struct Case {
        const char* what;
        void (*make)(QMdiSubWindow*);
        bool isNew;
    };
    const Case cases[] = {
        {"moved", [](QMdiSubWindow* w) { w->setGeometry(300, 300, 200, 100); }, false},
        {"minimised", [](QMdiSubWindow* w) { w->showMinimized(); }, false},
        {"maximised", [](QMdiSubWindow* w) { w->showMaximized(); }, false},
        {"closed", [](QMdiSubWindow* w) { w->close(); }, true},
    };
    for (const Case& c : cases) {
        WindowBench b;
        b.Start();
        for (const char* name : {"frmProgram", "frmEEprom", "frmSetting"}) {
            c.make(Child(b, name));
            QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        }
        b.Item("mmuWindowReDrow")->trigger();
        EXPECT_EQ(Child(b, "frmProgram")->geometry(), Twips(50, 50, 6900, 4000)) << c.what;
        EXPECT_EQ(Child(b, "frmEEprom")->geometry(), Twips(50, 4100, 6900, 2000)) << c.what;
        EXPECT_EQ(Child(b, "frmSetting")->geometry(), Twips(7000, 50, 4100, 6050)) << c.what;
        EXPECT_TRUE(b.Find<QComboBox>("Combo_device")->isVisible()) << c.what;
        EXPECT_EQ(b.Find<QPlainTextEdit>("txtPrg")->toPlainText() == u"Program Memoey"_s, c.isNew);
        b.Click("Clear");  // whoever shows a listing brings its window up to date
        EXPECT_TRUE(b.Find<QPlainTextEdit>("txtPrg")->toPlainText().startsWith(u"0000: FFFF"_s));
    }
}

TEST(Layout, EveryTextOfTheSettingsWindowIsWhole) {
    for (int device = 0; device < 10; ++device) {
        WindowBench b(device);
        b.Start();
        QWidget* setting = Child(b, "frmSetting")->widget();
        for (QWidget* widget : setting->findChildren<QWidget*>()) {
            if (!widget->isVisible() || widget->objectName().isEmpty() ||
                widget->objectName().startsWith(u"qt_"_s)) {
                continue;
            }
            const QRect place(widget->mapTo(setting, QPoint()), widget->size());
            EXPECT_TRUE(setting->rect().contains(place)) << widget->objectName().toStdString();
            for (QWidget* other : widget->parentWidget()->findChildren<QWidget*>(
                     QString(), Qt::FindDirectChildrenOnly)) {
                const bool label = qobject_cast<QLabel*>(widget) != nullptr;
                EXPECT_TRUE(other == widget || label || !other->isVisible() ||
                            qobject_cast<QLabel*>(other) != nullptr ||
                            !other->geometry().intersects(widget->geometry()))
                    << widget->objectName().toStdString();
            }
            if (qobject_cast<QLabel*>(widget) != nullptr) {
                EXPECT_GE(widget->width(), widget->sizeHint().width())
                    << widget->objectName().toStdString();
                EXPECT_GE(widget->height(), QFontMetrics(widget->font()).ascent())
                    << widget->objectName().toStdString();
            }
        }
        const auto* list = b.Find<QComboBox>("Combo_device");
        const QFontMetrics metrics(list->font());
        EXPECT_LT(metrics.horizontalAdvance(list->currentText()) + 24, list->width());
    }
}

TEST(Layout, EveryControlHasANameToBeSpoken) {
    WindowBench b;
    b.Start();
    for (QWidget* widget : b.program.Window().findChildren<QWidget*>()) {
        if (widget->focusPolicy() != Qt::NoFocus && !widget->objectName().isEmpty() &&
            !widget->objectName().startsWith(u"qt_"_s)) {
            const bool named =
                !widget->accessibleName().isEmpty() || widget->focusProxy() != nullptr;
            EXPECT_TRUE(named) << widget->objectName().toStdString();
        }
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

    b.Item("mnuFileExit")->trigger();
    WindowBench again;
    again.settings.values = b.settings.values;
    again.Start();  // a modal dialog would never return
    EXPECT_TRUE(again.dialogsSeen.isEmpty());
}

TEST(StartUp, GeometryRoundTripsAndDamageFallsBack) {
    WindowBench b;
    b.settings.values[u"MainLeft"_s] = u"-30000"_s;
    b.settings.values[u"PgmWidth"_s] = u"6000"_s;
    b.settings.values[u"EEpTop"_s] = u"somewhere"_s;
    b.settings.values[u"SetLeft"_s] = u"6900"_s;
    b.Start();
    EXPECT_EQ(b.program.Window().x(), -2000);
    EXPECT_EQ(Child(b, "frmProgram")->geometry(), Twips(50, 50, 6000, 4000));
    EXPECT_EQ(Child(b, "frmEEprom")->geometry(), Twips(50, 4100, 6900, 2000));
    Child(b, "frmEEprom")->close();
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    b.settings.values[u"EEpTop"_s] = u"4321"_s;
    b.program.Window().close();
    EXPECT_EQ(b.settings.values[u"MainLeft"_s], u"-30000"_s);
    EXPECT_EQ(b.settings.values[u"MainWidth"_s], u"11295"_s);  // whole pixels
    EXPECT_EQ(b.settings.values[u"PgmWidth"_s], u"6000"_s);
    EXPECT_EQ(b.settings.values[u"EEpTop"_s], u"4321"_s);
    EXPECT_EQ(b.settings.values[u"SetLeft"_s], u"6900"_s);
    EXPECT_TRUE(b.ListingFiles().isEmpty());
}

TEST(ShutDown, MinimisedSavesNothing) {
    WindowBench b;
    b.Start();
    const auto before = b.settings.values;
    b.program.Window().showMinimized();
    b.Item("mnuFileExit")->trigger();
    EXPECT_EQ(b.settings.values, before);
    EXPECT_TRUE(b.ListingFiles().isEmpty());
}

TEST(ShutDown, InTheMiddleOfAChainLeavesNoFileAndNoWindow) {
    for (const int yields : {1, 5, 12, 20}) {
        WindowBench b;
        b.Start();
        b.person.fileAnswers = {Chosen(kBlink)};
        b.Click("Open");
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

}  // namespace
}  // namespace tolvex
