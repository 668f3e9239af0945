// SPDX-License-Identifier: MIT
#pragma once

#include "base/app_dir.h"

namespace tolvex {

/// Makes `programFolder` the current directory, where it can be entered. Listings belong there, or
/// in `userFolder` when it doesn't take them, as where the program is installed for all users.
/// Neither folder needs to end in a separator or to exist; nothing is created here.
AppDir EnterProgramFolder(const QString& programFolder, const QString& userFolder);

/// The same with the running program's folder (needs a QCoreApplication) and `Tolvex` in the user's
/// data folder.
AppDir EnterProgramFolder();

}  // namespace tolvex
