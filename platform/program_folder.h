// SPDX-License-Identifier: MIT
#pragma once

#include "base/app_dir.h"

namespace tolvex {

struct ProgramFolder {
    AppDir appDir;
    bool isCurrent = false;         ///< the program's folder became the current directory
    bool canWriteListings = false;  ///< false: no folder takes the listings, not even the user's
};

/// Makes `programFolder` the current directory and finds the folder for the listings: the same one
/// if a file can be created in it, else `userFolder`, which is then created. Neither needs to end
/// in a separator; both do in the result.
ProgramFolder EnterProgramFolder(const QString& programFolder, const QString& userFolder);

/// The same with the running program's folder (needs a QCoreApplication) and `Tolvex` in the user's
/// data folder.
ProgramFolder EnterProgramFolder();

}  // namespace tolvex
