// SPDX-License-Identifier: MIT
#include "app/main_commands.h"

#include <QCoreApplication>

namespace tolvex {

using namespace Qt::StringLiterals;

void MainCommands::RunFileCommand(FileCommand command) {
    parts_.guard.Run([this, command] { (parts_.bench.files.*command)(); });
}

void MainCommands::mnuFileOpen_Click() {
    RunFileCommand(&FileCommands::mnuFileOpen_Click);
}

void MainCommands::mnuFileOpenCode_Click() {
    RunFileCommand(&FileCommands::mnuFileOpenCode_Click);
}

void MainCommands::mnuFileOpenData_Click() {
    RunFileCommand(&FileCommands::mnuFileOpenData_Click);
}

void MainCommands::mnuFileSave_Click() {
    RunFileCommand(&FileCommands::mnuFileSave_Click);
}

void MainCommands::mnuFileSaveAs_Click() {
    RunFileCommand(&FileCommands::mnuFileSaveAs_Click);
}

void MainCommands::mnuFileSaveAsCode_Click() {
    RunFileCommand(&FileCommands::mnuFileSaveAsCode_Click);
}

void MainCommands::mnuFileSaveAsData_Click() {
    RunFileCommand(&FileCommands::mnuFileSaveAsData_Click);
}

void MainCommands::mnuReLoad_Click() {
    RunFileCommand(&FileCommands::mnuReLoad_Click);
}

void MainCommands::mnuFileExit_Click() {
    parts_.shutDown();
}

void MainCommands::mmuCominucation_Click() {
    parts_.guard.Run([this] {
        parts_.window.SetStatusText(kMessagePanel, QString());
        parts_.showPortDialog();
    });
}

void MainCommands::mmuLEDon_Click() {
    parts_.guard.Run([this] { parts_.bench.commands.LedOn(); });
}

void MainCommands::mmuLEDoff_Click() {
    parts_.guard.Run([this] { parts_.bench.commands.LedOff(); });
}

// The action has changed its check mark already; the bar follows it.
void MainCommands::mnuViewToolbar_Click() {
    parts_.window.Tools().setVisible(parts_.window.Tools().isHidden());
}

void MainCommands::mnuViewStatusBar_Click() {
    parts_.window.Panels().setVisible(parts_.window.Panels().isHidden());
}

void MainCommands::mnuViewOptions_Click() {
    parts_.dialogs.ShowBox(BoxIcon::None, u"Tolvex"_s,
                           u"ｵﾌﾟｼｮﾝ ﾀﾞｲｱﾛｸﾞのｺｰﾄﾞをここに記述します !"_s);
}

void MainCommands::mmuWindowReDrow_Click() {
    parts_.children.OpenSettingWindow();
    parts_.children.OpenProgramWindow();
    parts_.children.OpenEepromWindow();
}

void MainCommands::mmuOpenSettingWindow_Click() {
    parts_.children.OpenSettingWindow();
}

void MainCommands::mmuOpenProgramWindow_Click() {
    parts_.children.OpenProgramWindow();
}

void MainCommands::mmuOpenEEpromWindow_Click() {
    parts_.children.OpenEepromWindow();
}

void MainCommands::mnuWindowCascade_Click() {
    parts_.window.Area().cascadeSubWindows();
}

void MainCommands::mnuWindowTileHorizontal_Click() {
    TileInRows(true);
}

void MainCommands::mnuWindowTileVertical_Click() {
    TileInRows(false);
}

/// All windows that are open and not minimised, one below or one beside the other.
void MainCommands::TileInRows(bool rows) {
    QList<QMdiSubWindow*> tiles;
    for (QMdiSubWindow* window : parts_.window.Area().subWindowList()) {
        if (!window->isHidden() && !window->isMinimized()) {
            tiles << window;
        }
    }
    if (tiles.isEmpty()) {
        return;
    }
    const QSize area = parts_.window.Area().viewport()->size();
    const int count = static_cast<int>(tiles.size());
    const QSize tile = rows ? QSize(area.width(), area.height() / count)
                            : QSize(area.width() / count, area.height());
    for (int i = 0; i < count; ++i) {
        const QPoint corner = rows ? QPoint(0, i * tile.height()) : QPoint(i * tile.width(), 0);
        tiles[i]->showNormal();
        tiles[i]->setGeometry({corner, tile});
    }
}

/// Minimised windows, lined up along the lower edge.
void MainCommands::mnuWindowArrangeIcons_Click() {
    int left = 0;
    const int bottom = parts_.window.Area().viewport()->height();
    for (QMdiSubWindow* window : parts_.window.Area().subWindowList()) {
        if (window->isMinimized() && !window->isHidden()) {
            window->move(left, bottom - window->height());
            left += window->width();
        }
    }
}

void MainCommands::mnuHelpContents_Click() {
    ShowNoHelp();
}

void MainCommands::mnuHelpSearch_Click() {
    ShowNoHelp();
}

void MainCommands::ShowNoHelp() {
    parts_.dialogs.ShowBox(
        BoxIcon::Information, parts_.window.windowTitle(),
        u"ﾍﾙﾌﾟの目次を表示できません。 このﾌﾟﾛｼﾞｪｸﾄに関連付けられたﾍﾙﾌﾟが存在しません。"_s);
}

void MainCommands::mmuIndex_Click() {
    parts_.showBoardPanel();
}

void MainCommands::mnuHelpSub_Click() {
    parts_.showHelp();
}

void MainCommands::mnuHelpAbout_Click() {
    parts_.showVersionPanel();
}

void MainCommands::tbToolBar_ButtonClick(const QString& key) {
    parts_.guard.Run([this, key] {
        QCoreApplication::processEvents();  // the button is seen to come up before the work begins
        parts_.bench.toolbar.Click(key);
    });
}

void MainCommands::sbStatusBar_PanelClick(int panel) {
    if (parts_.window.Panels().PanelText(panel).startsWith(u"COM"_s)) {
        parts_.guard.Run(parts_.showPortDialog);
    }
}

}  // namespace tolvex
