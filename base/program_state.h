// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include "base/device_record.h"
#include "base/error_flag.h"
#include "base/memory_images.h"

namespace tolvex {

/// Which files the file commands work on; all empty at start-up.
struct FileNames {
    QString CodeFileName;  ///< last opened
    QString DataFileName;
    QString CodeSaveName;  ///< where the next write goes
    QString DataSaveName;
    bool ReloadFlag = false;  ///< open again what is named, without a dialog
};

/// What lives for the whole run and is shared by all operations; one of each.
struct ProgramState {
    MemoryImages images{};
    FileNames names{};
    CurrentDevice device{};
    ErrorFlag errorFlag{};
};

}  // namespace tolvex
