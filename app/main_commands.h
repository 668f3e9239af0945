// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <variant>

#include "app/child_windows.h"
#include "app/frmMain.h"
#include "app/run_guard.h"
#include "workbench/workbench.h"

namespace tolvex {

/// What the main window's menus and bars do.
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

    /// What a menu item may call: a handler below, or what does the work itself.
    using Command = std::variant<std::monostate, void (MainCommands::*)(), void (FileCommands::*)(),
                                 void (WriterCommands::*)(), void (ChildWindows::*)()>;

    explicit MainCommands(const Parts& parts) : parts_(parts) {}

    /// Commands on files and on the writer run alone; nothing happens while something else runs.
    void Do(const Command& command);

    void mnuFileExit_Click();
    void mmuCominucation_Click();
    void mnuViewToolbar_Click();
    void mnuViewStatusBar_Click();
    void mnuViewOptions_Click();
    void mnuWindowCascade_Click();
    void mnuWindowTileHorizontal_Click();
    void mnuWindowTileVertical_Click();
    void mnuWindowArrangeIcons_Click();
    void mnuHelpContents_Click();
    void mmuIndex_Click();
    void mnuHelpSub_Click();
    void mnuHelpAbout_Click();

    void tbToolBar_ButtonClick(const QString& key);
    void sbStatusBar_PanelClick(int panel);

  private:
    void Tile(bool rows);

    Parts parts_;
};

}  // namespace tolvex
