// SPDX-License-Identifier: MIT
#include "app/menu_bar.h"

#include <QAction>
#include <QKeyEvent>
#include <QMenu>
#include <QMouseEvent>

#include "app/main_commands.h"
#include "widgets/fonts.h"

namespace tolvex {

using namespace Qt::StringLiterals;

namespace {

enum MenuFlag {
    kTop = 1,    ///< begins a menu on the bar
    kOnBar = 2,  ///< a command on the bar itself
    kSeparator = 4,
    kHidden = 8,
    kChecked = 16,    ///< checkable, checked at first
    kExclusive = 32,  ///< not while an operation runs
    kWindowList = 64  ///< the open child windows are listed below its items
};

struct MenuRow {
    const char* name;
    QStringView caption;
    int flags = 0;
    QStringView shortcut = {};
    MainCommands::Command command = {};
};

using C = MainCommands;
using File = FileCommands;
using Child = ChildWindows;

// In the order in which they appear; an item belongs to the menu above it.
constexpr MenuRow kMenuRows[] = {
    {"mnuFile", u"ファイル(&F)", kTop},
    {"mnuFileOpen", u"コード/データファイルを開く(&O)", kExclusive, u"Ctrl+O",
     &File::mnuFileOpen_Click},
    {"mnuFileOpenCode", u"コードファイルを開く", kExclusive, {}, &File::mnuFileOpenCode_Click},
    {"mnuFileOpenData", u"データファイルを開く", kExclusive, {}, &File::mnuFileOpenData_Click},
    {"mnuFileBarx", {}, kSeparator},
    {"mnuFileSave", u"上書き保存(&S)", kExclusive, {}, &File::mnuFileSave_Click},
    {"mnuFileBarxxx", {}, kSeparator},
    {"mnuFileSaveAs", u"コード/データファイルを別名で保存(&A)", kExclusive, u"Ctrl+S",
     &File::mnuFileSaveAs_Click},
    {"mnuFileSaveAsCode",
     u"コードファイルを別名で保存",
     kExclusive,
     {},
     &File::mnuFileSaveAsCode_Click},
    {"mnuFileSaveAsData",
     u"データファイルを別名で保存",
     kExclusive,
     {},
     &File::mnuFileSaveAsData_Click},
    {"mnuFileBar2", {}, kSeparator},
    {"mnuFileExit", u"終了(&X)", 0, {}, &C::mnuFileExit_Click},

    {"mmuComCheck", u"通信チェック(&C)", kTop},
    {"mmuCominucation", u"COMポート選択(&C)", kExclusive, {}, &C::mmuCominucation_Click},
    {"mnuFileBary", {}, kSeparator | kHidden},
    {"mmuLEDon", u"ライターのLEDオン(&O)", kHidden | kExclusive, {}, &WriterCommands::LedOn},
    {"mmuLEDoff", u"ライターのLEDオフ(&F)", kHidden | kExclusive, {}, &WriterCommands::LedOff},

    {"mnuView", u"表示(&V)", kTop},
    {"mnuViewToolbar", u"ツールバー(&T)", kChecked, {}, &C::mnuViewToolbar_Click},
    {"mnuViewStatusBar", u"ステータスバー(&B)", kChecked, {}, &C::mnuViewStatusBar_Click},
    {"mnuViewBar2", {}, kSeparator | kHidden},
    {"mnuViewOptions", u"オプション(&O)...", kHidden | kExclusive, {}, &C::mnuViewOptions_Click},

    {"mnuWindow", u"ウインドウ(&W)", kTop | kWindowList},
    {"mmuWindowReDrow", u"ウインドウの再整列", 0, {}, &Child::OpenAll},
    {"mnuFileBarz", {}, kSeparator},
    {"mmuOpenSettingWindow", u"設定ウインドウを開く", 0, {}, &Child::OpenSettingWindow},
    {"mmuOpenProgramWindow", u"プログラムメモリウインドウを開く", 0, {}, &Child::OpenProgramWindow},
    {"mmuOpenEEpromWindow", u"EEPROMデータメモリウインドウを開く", 0, {}, &Child::OpenEepromWindow},
    {"mnuWindowBar1", {}, kSeparator | kHidden},
    {"mnuWindowCascade", u"重ねて表示(&C)", kHidden, {}, &C::mnuWindowCascade_Click},
    {"mnuWindowTileHorizontal",
     u"上下に並べて表示(&H)",
     kHidden,
     {},
     &C::mnuWindowTileHorizontal_Click},
    {"mnuWindowTileVertical",
     u"左右に並べて表示(&V)",
     kHidden,
     {},
     &C::mnuWindowTileVertical_Click},
    {"mnuWindowArrangeIcons", u"アイコンの整列(&A)", kHidden, {}, &C::mnuWindowArrangeIcons_Click},

    {"mnuHelp", u"ヘルプ(&H)", kTop},
    {"mnuHelpContents", u"目次(&C)", kHidden | kExclusive, {}, &C::mnuHelpContents_Click},
    {"mnuHelpSearch",
     u"トピックの検索(&S)...",
     kHidden | kExclusive,
     {},
     &C::mnuHelpContents_Click},
    {"mmuIndex", u"ボードの修正(&8)", kExclusive, {}, &C::mmuIndex_Click},
    {"mnuHelpBar1", {}, kSeparator},
    {"mnuHelpSub", u"ヘルプ(&H)", 0, {}, &C::mnuHelpSub_Click},
    {"mnuHelpAbout", u"バージョン情報(&A)", kExclusive, {}, &C::mnuHelpAbout_Click},

    {"mnuReLoad",
     u"【HEXファイルの再ロード】(&R)",
     kOnBar | kExclusive,
     {},
     &File::mnuReLoad_Click},
};

}  // namespace

MenuBar::MenuBar(QWidget* parent) : QMenuBar(parent) {
    setFont(BarFont());
    connect(this, &QMenuBar::triggered, this, &MenuBar::GiveFocusBack);
    QMenu* menu = nullptr;
    for (const MenuRow& row : kMenuRows) {
        const QString name = QString::fromLatin1(row.name);
        if ((row.flags & kTop) != 0) {
            menu = addMenu(row.caption.toString());
            menu->setObjectName(name);
            if ((row.flags & kWindowList) != 0) {
                windowMenu_ = menu;
            }
            continue;
        }
        auto* action = new QAction(row.caption.toString(), this);
        action->setObjectName(name);
        action->setSeparator((row.flags & kSeparator) != 0);
        action->setVisible((row.flags & kHidden) == 0);
        action->setShortcut(QKeySequence(row.shortcut.toString()));
        action->setMenuRole(QAction::NoRole);
        action->setCheckable((row.flags & kChecked) != 0);
        action->setChecked((row.flags & kChecked) != 0);
        if ((row.flags & kExclusive) != 0) {
            exclusive_ << action;
        }
        // Queued: who presses an item through the accessibility bus gets the answer at once.
        connect(
            action, &QAction::triggered, this,
            [this, command = row.command] { Q_EMIT Chosen(command); }, Qt::QueuedConnection);
        (row.flags & kOnBar) != 0 ? addAction(action) : menu->addAction(action);
    }
}

/// Qt marks a menu without opening it when the mouse passes.
void MenuBar::FocusFirst() {
    before_ = window()->focusWidget();
    setFocus(Qt::MenuBarFocusReason);
    const QPointF place = actionGeometry(actions().first()).center();
    QMouseEvent pass(QEvent::MouseMove, place, mapToGlobal(place), Qt::NoButton, Qt::NoButton,
                     Qt::NoModifier);
    mouseMoveEvent(&pass);
}

void MenuBar::GiveFocusBack() {
    if (hasFocus() && before_) {
        before_->setFocus(Qt::OtherFocusReason);
    }
}

void MenuBar::keyPressEvent(QKeyEvent* event) {
    QMenuBar::keyPressEvent(event);
    if (event->key() == Qt::Key_Escape) {
        GiveFocusBack();
    }
}

void MenuBar::SetBusy(bool busy) {
    for (QAction* action : exclusive_) {
        action->setEnabled(!busy);
    }
}

}  // namespace tolvex
