// SPDX-License-Identifier: MIT
#pragma once

#include <functional>

#include "app/child_windows.h"
#include "app/frmMain.h"
#include "app/run_guard.h"
#include "workbench/workbench.h"

namespace tolvex {

/// What the main window's menus and bars do, a handler an item.
class MainCommands {
  public:
    /// Borrowed.
    struct Parts {
        frmMain& window;
        ChildWindows& children;
        Workbench& bench;
        RunGuard& guard;
        Dialogs& dialogs;
        std::function<void()> showPortDialog;
        std::function<void()> showBoardPanel;
        std::function<void()> showVersionPanel;
        std::function<void()> showHelp;
        std::function<void()> shutDown;
    };

    explicit MainCommands(const Parts& parts) : parts_(parts) {}

    void mnuFileOpen_Click();
    void mnuFileOpenCode_Click();
    void mnuFileOpenData_Click();
    void mnuFileSave_Click();
    void mnuFileSaveAs_Click();
    void mnuFileSaveAsCode_Click();
    void mnuFileSaveAsData_Click();
    void mnuFileExit_Click();
    void mmuCominucation_Click();
    void mmuLEDon_Click();
    void mmuLEDoff_Click();
    void mnuViewToolbar_Click();
    void mnuViewStatusBar_Click();
    void mnuViewOptions_Click();
    void mmuWindowReDrow_Click();
    void mmuOpenSettingWindow_Click();
    void mmuOpenProgramWindow_Click();
    void mmuOpenEEpromWindow_Click();
    void mnuWindowCascade_Click();
    void mnuWindowTileHorizontal_Click();
    void mnuWindowTileVertical_Click();
    void mnuWindowArrangeIcons_Click();
    void mnuHelpContents_Click();
    void mnuHelpSearch_Click();
    void mmuIndex_Click();
    void mnuHelpSub_Click();
    void mnuHelpAbout_Click();
    void mnuReLoad_Click();

    void tbToolBar_ButtonClick(const QString& key);
    void sbStatusBar_PanelClick(int panel);

  private:
    using FileCommand = void (FileCommands::*)();

    void RunFileCommand(FileCommand command);
    void ShowNoHelp();
    void TileInRows(bool rows);

    Parts parts_;
};

}  // namespace tolvex
