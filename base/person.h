// SPDX-License-Identifier: MIT
#pragma once

#include "base/dialogs.h"
#include "base/listing_windows.h"
#include "base/message_dialog.h"
#include "base/setting_panel.h"
#include "base/status_panels.h"

namespace tolvex {

/// Whom the operations talk to, through whatever stands for each: windows, the terminal, a test's
/// recorder. Borrowed; all of it outlives the operations.
struct Person {
    StatusPanels& status;
    MessageDialog& dialog;
    ListingWindows& windows;
    SettingPanel& panel;
    Dialogs& dialogs;
};

}  // namespace tolvex
