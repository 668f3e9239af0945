// SPDX-License-Identifier: MIT
// The menus of the main window, and what their items do.
#include <QMdiSubWindow>

#include "app/frmAbout.h"
#include "app/frmIndex.h"
#include "app/window_program.h"
#include "base/text.h"
#include "platform/window_dialogs.h"

namespace tolvex {

using namespace Qt::StringLiterals;

namespace {

// The action has changed its check mark already; the bar follows it.
void Toggle(QWidget& bar) {
    bar.setVisible(bar.isHidden());
}

/// All windows that are open and not minimised, one below or one beside the other.
void Tile(QMdiArea& area, bool below) {
    QList<QMdiSubWindow*> tiles = area.subWindowList();
    tiles.removeIf([](QMdiSubWindow* w) { return w->isHidden() || w->isMinimized(); });
    const QSize inside = area.viewport()->size();
    const int count = static_cast<int>(tiles.size());
    for (int i = 0; i < count; ++i) {
        const QSize tile(below ? inside.width() : inside.width() / count,
                         below ? inside.height() / count : inside.height());
        tiles[i]->showNormal();
        tiles[i]->setGeometry(
            QRect(below ? QPoint(0, i * tile.height()) : QPoint(i * tile.width(), 0), tile));
    }
}

/// Minimised windows, lined up along the lower edge.
void ArrangeIcons(QMdiArea& area) {
    int left = 0;
    for (QMdiSubWindow* window : area.subWindowList()) {
        if (window->isMinimized() && !window->isHidden()) {
            window->move(left, area.viewport()->height() - window->height());
            left += window->width();
        }
    }
}

}  // namespace

std::span<const MenuRow> WindowProgram::MenuRows() {
    using Program = WindowProgram;
    // In the order in which they appear.
    static constexpr MenuRow kRows[] = {
        {"mnuFile", QT_TRANSLATE_NOOP("Tolvex", "ファイル(&F)"), kTop},
        {"mnuFileOpen", QT_TRANSLATE_NOOP("Tolvex", "コード/データファイルを開く(&O)"), kExclusive,
         [](Program& p) { p.bench_.files.mnuFileOpen_Click(); }, u"Ctrl+O"},
        {"mnuFileOpenCode", QT_TRANSLATE_NOOP("Tolvex", "コードファイルを開く"), kExclusive,
         [](Program& p) { p.bench_.files.mnuFileOpenCode_Click(); }},
        {"mnuFileOpenData", QT_TRANSLATE_NOOP("Tolvex", "データファイルを開く"), kExclusive,
         [](Program& p) { p.bench_.files.mnuFileOpenData_Click(); }},
        {"mnuFileBarx", "", kSeparator},
        {"mnuFileSave", QT_TRANSLATE_NOOP("Tolvex", "上書き保存(&S)"), kExclusive,
         [](Program& p) { p.bench_.files.mnuFileSave_Click(); }},
        {"mnuFileBarxxx", "", kSeparator},
        {"mnuFileSaveAs", QT_TRANSLATE_NOOP("Tolvex", "コード/データファイルを別名で保存(&A)"),
         kExclusive, [](Program& p) { p.bench_.files.mnuFileSaveAs_Click(); }, u"Ctrl+S"},
        {"mnuFileSaveAsCode", QT_TRANSLATE_NOOP("Tolvex", "コードファイルを別名で保存"), kExclusive,
         [](Program& p) { p.bench_.files.mnuFileSaveAsCode_Click(); }},
        {"mnuFileSaveAsData", QT_TRANSLATE_NOOP("Tolvex", "データファイルを別名で保存"), kExclusive,
         [](Program& p) { p.bench_.files.mnuFileSaveAsData_Click(); }},
        {"mnuFileBar2", "", kSeparator},
        {"mnuFileExit", QT_TRANSLATE_NOOP("Tolvex", "終了(&X)"), 0,
         [](Program& p) { p.ShutDown(); }},

        {"mmuComCheck", QT_TRANSLATE_NOOP("Tolvex", "通信チェック(&C)"), kTop},
        {"mmuCominucation", QT_TRANSLATE_NOOP("Tolvex", "COMポート選択(&C)"), kExclusive,
         [](Program& p) { p.mmuCominucation_Click(); }},
        {"mnuFileBary", "", kSeparator | kHidden},
        {"mmuLEDon", QT_TRANSLATE_NOOP("Tolvex", "ライターのLEDオン(&O)"), kHidden | kExclusive,
         [](Program& p) { p.bench_.commands.LedOn(); }},
        {"mmuLEDoff", QT_TRANSLATE_NOOP("Tolvex", "ライターのLEDオフ(&F)"), kHidden | kExclusive,
         [](Program& p) { p.bench_.commands.LedOff(); }},

        {"mnuView", QT_TRANSLATE_NOOP("Tolvex", "表示(&V)"), kTop},
        {"mnuViewToolbar", QT_TRANSLATE_NOOP("Tolvex", "ツールバー(&T)"), kChecked,
         [](Program& p) { Toggle(p.window_.Tools()); }},
        {"mnuViewStatusBar", QT_TRANSLATE_NOOP("Tolvex", "ステータスバー(&B)"), kChecked,
         [](Program& p) { Toggle(p.window_.Panels()); }},
        {"mnuViewBar2", "", kSeparator | kHidden},
        {"mnuViewOptions", QT_TRANSLATE_NOOP("Tolvex", "オプション(&O)..."), kHidden | kExclusive,
         [](Program& p) { p.mnuViewOptions_Click(); }},

        {"mnuWindow", QT_TRANSLATE_NOOP("Tolvex", "ウインドウ(&W)"), kTop | kWindowList},
        {"mmuWindowReDrow", QT_TRANSLATE_NOOP("Tolvex", "ウインドウの再整列"), 0,
         [](Program& p) { p.children_.OpenAll(); }},
        {"mnuFileBarz", "", kSeparator},
        {"mmuOpenSettingWindow", QT_TRANSLATE_NOOP("Tolvex", "設定ウインドウを開く"), 0,
         [](Program& p) { p.children_.OpenSettingWindow(); }},
        {"mmuOpenProgramWindow", QT_TRANSLATE_NOOP("Tolvex", "プログラムメモリウインドウを開く"), 0,
         [](Program& p) { p.children_.OpenProgramWindow(); }},
        {"mmuOpenEEpromWindow", QT_TRANSLATE_NOOP("Tolvex", "EEPROMデータメモリウインドウを開く"),
         0, [](Program& p) { p.children_.OpenEepromWindow(); }},
        {"mnuWindowBar1", "", kSeparator | kHidden},
        {"mnuWindowCascade", QT_TRANSLATE_NOOP("Tolvex", "重ねて表示(&C)"), kHidden,
         [](Program& p) { p.window_.Area().cascadeSubWindows(); }},
        {"mnuWindowTileHorizontal", QT_TRANSLATE_NOOP("Tolvex", "上下に並べて表示(&H)"), kHidden,
         [](Program& p) { Tile(p.window_.Area(), true); }},
        {"mnuWindowTileVertical", QT_TRANSLATE_NOOP("Tolvex", "左右に並べて表示(&V)"), kHidden,
         [](Program& p) { Tile(p.window_.Area(), false); }},
        {"mnuWindowArrangeIcons", QT_TRANSLATE_NOOP("Tolvex", "アイコンの整列(&A)"), kHidden,
         [](Program& p) { ArrangeIcons(p.window_.Area()); }},

        {"mnuHelp", QT_TRANSLATE_NOOP("Tolvex", "ヘルプ(&H)"), kTop},
        {"mnuHelpContents", QT_TRANSLATE_NOOP("Tolvex", "目次(&C)"), kHidden | kExclusive,
         [](Program& p) { p.mnuHelpContents_Click(); }},
        {"mnuHelpSearch", QT_TRANSLATE_NOOP("Tolvex", "トピックの検索(&S)..."),
         kHidden | kExclusive, [](Program& p) { p.mnuHelpContents_Click(); }},
        {"mmuIndex", QT_TRANSLATE_NOOP("Tolvex", "ボードの修正(&8)"), kExclusive,
         [](Program& p) { p.mmuIndex_Click(); }},
        {"mnuHelpBar1", "", kSeparator},
        {"mnuHelpSub", QT_TRANSLATE_NOOP("Tolvex", "ヘルプ(&H)"), 0,
         [](Program& p) { p.mnuHelpSub_Click(); }},
        {"mnuHelpAbout", QT_TRANSLATE_NOOP("Tolvex", "バージョン情報(&A)"), kExclusive,
         [](Program& p) { p.mnuHelpAbout_Click(); }},

        {"mnuReLoad", QT_TRANSLATE_NOOP("Tolvex", "【HEXファイルの再ロード】(&R)"),
         kOnBar | kExclusive, [](Program& p) { p.bench_.files.mnuReLoad_Click(); }},
    };
    return kRows;
}

void WindowProgram::mmuCominucation_Click() {
    SetStatusText(kMessagePanel, QString());
    ShowPortDialog();
}

void WindowProgram::mnuViewOptions_Click() {
    ShowBox(BoxIcon::None, u"Tolvex"_s, Text::tr("ｵﾌﾟｼｮﾝ ﾀﾞｲｱﾛｸﾞのｺｰﾄﾞをここに記述します !"));
}

/// No help file is registered with the program.
void WindowProgram::mnuHelpContents_Click() {
    ShowBox(
        BoxIcon::Information, MainCaption(),
        Text::tr("ﾍﾙﾌﾟの目次を表示できません。 このﾌﾟﾛｼﾞｪｸﾄに関連付けられたﾍﾙﾌﾟが存在しません。"));
}

void WindowProgram::mmuIndex_Click() {
    frmIndex panel(&window_);
    ExecModal(panel);
}

void WindowProgram::mnuHelpSub_Click() {
    parts_.showHelp(parts_.folders.program + Text::tr("tolvex.hlp"));  // one in each language
}

void WindowProgram::mnuHelpAbout_Click() {
    frmAbout panel(&window_);
    ExecModal(panel);
}

void WindowProgram::sbStatusBar_PanelClick(int panel) {
    // It says "COM:3", or nothing before the first detection.
    if (panel == kPortPanel && !window_.Panels().PanelText(panel).isEmpty()) {
        RunAlone([this] { ShowPortDialog(); });
    }
}

}  // namespace tolvex
