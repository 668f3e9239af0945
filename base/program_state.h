// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include "base/chip_data.h"

namespace tolvex {

/// The failure flag that all commands share: 0 = no failure, 1 = failure. Commands only ever set
/// it; whoever runs a sequence clears it first and tests it afterwards.
struct ErrorFlag {
    std::int16_t value{};

    void Set() { value = 1; }
    void Clear() { value = 0; }
    bool Failed() const { return value != 0; }
};

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
    OptionChoice options{};  ///< the settings window shows it

    // The lock and fuse bytes as they were last read or written. A failed read decodes what the
    // last successful one left, and before any that must not look like a locked chip.
    std::uint8_t lockByte = 0xFF;      ///< written with 'l'; read with 'F' from BOD_CKSEL chips
    std::uint8_t fuseByte = 0xFF;      ///< written with 'f'; read with 'r' from BOD_CKSEL chips
    std::uint8_t lockFuseByte = 0xFF;  ///< read with 'F' from FSTRT and RCEN chips

    ErrorFlag errorFlag{};
};

}  // namespace tolvex
