// SPDX-License-Identifier: MIT
#pragma once

namespace tolvex {

class frmMain;

/// Takes the keyboard focus where Tab and Ctrl+Tab, which the area of child windows handles, don't
/// lead: F6 goes from the active child window to the toolbar, the status bar and back, Shift+F6 the
/// other way round, F10 to the menus. What is hidden or disabled is left out.
void AddFocusKeys(frmMain& window);

}  // namespace tolvex
