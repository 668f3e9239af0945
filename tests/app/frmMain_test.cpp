// SPDX-License-Identifier: MIT
#include "app/frmMain.h"

#include <QAccessible>
#include <QDate>
#include <QTest>

#include "tests/app/window_bench.h"
#include "tests/support/real_files.h"

namespace tolvex::testing {
namespace {

TEST(MainWindow, BarsStandAsTheUserReadsThem) {
    RunningBench b;
    QStringList seen;
    for (QAction* top : b.window.menuBar()->actions()) {
        seen << top->text() + u':';
        for (QAction* item : top->menu() == nullptr ? QList<QAction*>() : top->menu()->actions()) {
            QString text = item->isSeparator() ? u"-"_s : item->text();
            text += item->shortcut().isEmpty() ? QString() : u' ' + item->shortcut().toString();
            text += item->isChecked() ? u" *"_s : QString();
            seen << (item->isVisible() ? text : u'[' + text + u']');
        }
    }
    for (QAction* action : b.window.Tools().actions()) {
        QWidget* widget = b.window.Tools().widgetForAction(action);
        const auto* button = qobject_cast<QToolButton*>(widget);
        seen << (button == nullptr
                     ? u"gap %1"_s.arg(widget->width())
                     : button->objectName() + u' ' + button->text() + u' ' + button->toolTip());
        EXPECT_TRUE(button == nullptr || !button->icon().isNull()) << seen.last().toStdString();
    }
    // clang-format off
    // "-" a separator; in brackets what is hidden.
    EXPECT_EQ(seen.join(u'|').toStdString(),
        "ファイル(&F):|コード/データファイルを開く(&O) Ctrl+O|コードファイルを開く|データファイルを開く|-|上書き保存(&S)|-|"
            "コード/データファイルを別名で保存(&A) Ctrl+S|コードファイルを別名で保存|データファイルを別名で保存|-|終了(&X)|"
        "通信チェック(&C):|COMポート選択(&C)|[-]|[ライターのLEDオン(&O)]|[ライターのLEDオフ(&F)]|"
        "表示(&V):|ツールバー(&T) *|ステータスバー(&B) *|[-]|[オプション(&O)...]|"
        "ウインドウ(&W):|ウインドウの再整列|-|設定ウインドウを開く|プログラムメモリウインドウを開く|EEPROMデータメモリウインドウを開く|"
            "[-]|[重ねて表示(&C)]|[上下に並べて表示(&H)]|[左右に並べて表示(&V)]|[アイコンの整列(&A)]|"
        "ヘルプ(&H):|[目次(&C)]|[トピックの検索(&S)...]|ボードの修正(&8)|-|ヘルプ(&H)|バージョン情報(&A)|【HEXファイルの再ロード】(&R):|"
        "Open 開く コード/データファイルを開く|Save 保存 コード/データファイルを名前をつけて保存|gap 8|ReLoad ReLoad HEXファイルの再ロード|gap 8|"
        "Program Program プログラム/EEPROMデータメモリのプログラム|Read Read プログラム/EEPROMデータメモリのリード|"
        "Verify Verify プログラム/EEPROMデータメモリのベリファイ|Erase Erase プログラム/EEPROMデータメモリ Lock/Fuseビット消去|gap 24|"
        "Clear ﾊﾞｯﾌｧｸﾘｱ PCバッファクリア|gap 24|ComSelect COM選択 ");
    // clang-format on
    auto* first = b.Find<FittedLabel>("Panel1");
    EXPECT_EQ(first->accessibleName(), u"メッセージ"_s);
    const QString text = u"l"_s.repeated(2000);  // narrow: cut within a few pixels of the edge
    b.window.Panels().hide();
    b.window.SetStatusText(1, text);
    b.window.Panels().show();
    EXPECT_TRUE(first->text().endsWith(u'…') && first->toolTip() == text);
    EXPECT_LE(first->fontMetrics().horizontalAdvance(first->text()), first->width() - 7);
    b.window.SetStatusText(1, u"短い"_s);
    EXPECT_TRUE(first->toolTip().isEmpty() && first->accessibleName() == u"短い" &&
                first->textFormat() == Qt::PlainText);
    EXPECT_EQ(b.Panel(4), QDate::currentDate().toString(u"yyyy/MM/dd"_s));
}

TEST(MainWindow, ShowsItselfWhileALongFileIsReadAndClosesAtOnce) {
    const std::tuple<const char*, const char*, QString> cases[] = {
        {"code.hex", ":0100020055A8", u"ファイルをオープンしました。"_s},
        {"far.eep", ":01FFFF005500", u"before"_s},
        {"closed.hex", ":0100020055A8", u"ファイルを読み込んでいます。"_s}};
    for (const auto& [name, end, status] : cases) {
        RunningBench b;
        const QString path = b.folder.filePath(QString::fromLatin1(name));
        const bool closes = path.endsWith(u"closed.hex"), whole = path.endsWith(u"code.hex");
        PutFile(path, QByteArray(":0100000012ED\r\n").repeated(100'000) + end);
        b.window.SetStatusText(1, u"before"_s);
        QStringList seen;
        b.clock.OnYield([&] {
            seen << b.Panel(1) + (b.window.Tools().isEnabled() ? u" enabled"_s : QString());
            if (closes) {
                b.program.ShutDown();
            }
        });
        Q_EMIT b.window.FilesDropped({path});
        EXPECT_TRUE(QTest::qWaitFor(
            [&] { return !seen.isEmpty() && (closes || b.window.Tools().isEnabled()); }));
        EXPECT_EQ(seen, QStringList(closes ? 1 : 2, u"ファイルを読み込んでいます。"_s));
        EXPECT_EQ(b.Panel(1), status);
        EXPECT_EQ(b.program.Bench().state.images.flash[3], whole ? 0x55 : 0xFF);
    }
}

/// Everything that a command can show or do.
std::string Outcome(WindowBench& b) {
    QStringList seen = b.user.calls + b.dialogsSeen;
    seen << b.helpShown.section(u'/', -1) << b.Message() << (b.board.LedIsOn() ? u"lit"_s : u""_s);
    seen << (b.window.Tools().isHidden() ? u"no toolbar"_s : u""_s);
    seen << (b.window.Panels().isHidden() ? u"no status bar"_s : u""_s) << b.Panel(1);
    seen.removeAll(QString());
    return seen.join(u'|').toStdString();
}

TEST(MainWindow, EachCommandDoesWhatItSays) {
    // clang-format off
    constexpr char kNothing[] = "指定されたファイルを開くことができませんでした。";
    constexpr char kOpenBoth[] = "open dialog コードファイル ＆ データファイルを開く|指定されたファイルを開くことができませんでした。";
    constexpr char kSaveBoth[] = "save dialog コードファイル ＆ データファイルの保存";
    constexpr char kPort[] = "通信ポート選択|ライター接続確認が終了していません。";
    constexpr char kNoHelp[] = "box Information Tolvex Version " TOLVEX_VERSION "|ﾍﾙﾌﾟの目次を表示できません。 このﾌﾟﾛｼﾞｪｸﾄに関連付けられたﾍﾙﾌﾟが存在しません。";
    // A menu item, a button or a key; the button pressed in the window that comes up; what is seen.
    const char* const cases[][3] = {
        {"mnuFileOpen", "", kOpenBoth},
        {"mnuFileOpenCode", "", "open dialog コードファイル(*.hex)を開く|box Information Tolvex Version " TOLVEX_VERSION "|指定されたファイルを開くことができませんでした。"},
        {"mnuFileOpenData", "", "open dialog データファイル(*.eep)を開く"},
        {"Ctrl+O", "", kOpenBoth},
        {"Open", "", kOpenBoth},
        {"mnuFileSave", "", "ファイルがオープンされていません．|ファイルがオープンされていません"},
        {"mnuFileSaveAs", "", kSaveBoth},
        {"mnuFileSaveAsCode", "", "save dialog コードファイル(*.hex)の保存"},
        {"mnuFileSaveAsData", "", "save dialog データファイル(*.eep)の保存"},
        {"Ctrl+S", "", kSaveBoth},
        {"Save", "", kSaveBoth},
        {"mnuReLoad", "", kNothing},
        {"ReLoad", "", kNothing},
        {"mmuCominucation", "Command_cancel", kPort},
        {"ComSelect", "Command_cancel", kPort},
        {"mmuLEDon", "", "lit"},
        {"mmuLEDoff", "", ""},
        {"mnuViewToolbar", "", "no toolbar"},
        {"mnuViewStatusBar", "", "no status bar"},
        {"mnuViewOptions", "", "box Tolvex|ｵﾌﾟｼｮﾝ ﾀﾞｲｱﾛｸﾞのｺｰﾄﾞをここに記述します !"},
        {"mmuIndex", "Command1", "ボードの修正"},
        {"mnuHelpContents", "", kNoHelp},
        {"mnuHelpSearch", "", kNoHelp},
        {"mnuHelpSub", "", "tolvex.hlp"},
        {"mnuHelpAbout", "cmdOK", "バージョン情報"},
        {"Clear", "", "バッファーをクリアしました。"},
        {"Program", "", "Lock bit & プログラム/EEPROMデータ メモリクリアー完了。|プログラム終了しました。"},
        {"Read", "", "リード終了しました。"},
        {"Verify", "", "ベリファイ　FLASH : OK / EEPROM : OK|ベリファイ終了しました。"},
        {"Erase", "", "Lock bit & Flash & EEPROM メモリクリアー完了。"},
        {"cmdFuseRead", "", "Lock/Fuse bit リードが完了しました。|ライタを検出しました。 COM1"},
        {"cmdFuseWrite", "", "Lock/Fuse bit ライトが完了しました。|ライタを検出しました。 COM1"}};
    // clang-format on
    const QString other = QStringLiteral(TOLVEX_SOURCE_DIR "/LICENSE");
    for (const auto& [name, answer, outcome] : cases) {
        RunningBench b(3);
        b.port.Open();
        Workbench& bench = b.program.Bench();
        if (QByteArray(name) == "mmuLEDoff") {
            bench.commands.LedOn();
        }
        bench.state.names.CodeFileName = QByteArray(name) == "mnuFileOpenCode" ? other : QString();
        b.AnswerDialogs(QString::fromUtf8(answer).split(u' ', Qt::SkipEmptyParts));
        if (QByteArray(name).startsWith("Ctrl")) {
            QTest::keyClick(&b.window, name[5], Qt::ControlModifier);
            QApplication::processEvents();
        } else {
            b.Click(name);
        }
        EXPECT_EQ(Outcome(b), outcome) << name;
    }
}

TEST(MainWindow, APanelThatBeginsWithComOpensThePortDialog) {
    RunningBench b;
    QDir(b.folder.path()).mkpath(u"ports"_s);
    const QString com7 = b.folder.filePath(u"ports/com7"_s);
    QFile::link(u"/dev/null"_s, com7);
    b.window.SetStatusText(1, u"ライタを検出しました。 COM1"_s);
    b.window.SetStatusText(5, u"COM:1"_s);
    b.DuringDialog([&com7](QWidget& dialog) {
        auto* list = dialog.findChild<QComboBox*>(u"Combo_com"_s);
        EXPECT_EQ(list->itemData(7, Qt::ToolTipRole).toString(), com7);
        EXPECT_EQ(dialog.focusWidget(), list);
    });
    b.AnswerDialogs(QStringList(4, u"Command_cancel"_s));  // more than should come
    auto* panel = b.Find<QWidget>("Panel5");
    QTest::mouseClick(b.Find<QWidget>("Panel1"), Qt::LeftButton);
    QTest::mouseClick(panel, Qt::RightButton);
    QTest::mousePress(panel, Qt::LeftButton);
    QTest::mouseRelease(panel, Qt::LeftButton, {}, QPoint(-9, 5));  // dragged off
    QApplication::processEvents();
    EXPECT_TRUE(b.dialogsSeen.isEmpty());
    QTest::mouseClick(panel, Qt::LeftButton);
    QApplication::processEvents();
    EXPECT_EQ(b.dialogsSeen.size(), 1);
    for (b.window.Panels().FocusFirst(); b.window.focusWidget() != panel;) {
        QTest::keyClick(b.window.focusWidget(), Qt::Key_Right);
    }
    QTest::keyClick(panel, Qt::Key_Space);
    QApplication::processEvents();
    EXPECT_EQ(b.dialogsSeen.size(), 2);
}

TEST(MainWindow, EscClosesWhatAFailedOperationLeft) {
    RunningBench b;
    b.program.Bench().ui.ShowMessage(MessageKind::Progress, u"left"_s);
    EXPECT_EQ(b.Message(), u"left"_s);
    QTest::keyClick(b.Find<QWidget>("txtAddress"), Qt::Key_Escape);
    EXPECT_EQ(b.Message(), QString());
}

TEST(MainWindow, ANarrowOneKeepsTheMessage) {
    RunningBench b(3);
    b.window.SetStatusText(2, u"AVR ISP SW:3.9 HW:1.0"_s);
    QApplication::processEvents();
    const auto width = [&b](const char* panel) { return b.Find<QWidget>(panel)->width(); };
    const int writer = width("Panel2"), date = width("Panel4");
    b.window.resize(420, 400);
    QApplication::processEvents();
    EXPECT_TRUE(width("Panel2") < writer && width("Panel4") < date);
    EXPECT_GT(width("Panel1"), 200);
    // It is read out when it is announced as shown.
    EXPECT_EQ(QAccessible::queryAccessibleInterface(b.Find<QWidget>("Panel1"))->role(),
              QAccessible::Notification);
}

TEST(MainWindow, EveryPartIsReachedByKeyboard) {
    RunningBench b;
    b.Find<QWidget>("txtPrg")->setFocus();
    const std::tuple<Qt::Key, Qt::KeyboardModifiers, QString> steps[] = {
        // clang-format off
        {Qt::Key_F6, {}, u"Open"_s}, {Qt::Key_F6, {}, u"Panel1"_s}, {Qt::Key_F6, {}, u"txtPrg"_s},
        {Qt::Key_Tab, Qt::ControlModifier, u"Combo_device"_s},
        {Qt::Key_F6, Qt::ShiftModifier, u"Panel1"_s}, {Qt::Key_F6, {}, u"Combo_device"_s},
        {Qt::Key_F6, {}, u"Open"_s},
        // clang-format on
    };
    for (const auto& [key, modifiers, focus] : steps) {
        QTest::keyClick(b.window.focusWidget(), key, modifiers);
        EXPECT_EQ(b.Focus(), focus);
    }
    EXPECT_TRUE(b.window.testAttribute(Qt::WA_KeyboardFocusChange)) << "no mark shows";
    QTest::keyClick(&b.window, Qt::Key_F10);
    const QAction* menu = b.window.menuBar()->activeAction();
    EXPECT_TRUE(menu != nullptr && menu->text() == u"ファイル(&F)");
    QTest::keyClick(b.window.menuBar(), Qt::Key_Escape);
    EXPECT_EQ(b.Focus(), u"Open"_s);  // where it was before the menus
    b.window.Panels().hide();
    QTest::keyClick(&b.window, Qt::Key_F6);
    EXPECT_EQ(b.Focus(), u"Combo_device"_s);
}

}  // namespace
}  // namespace tolvex::testing
