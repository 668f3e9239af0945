// SPDX-License-Identifier: MIT
#pragma once

#include "cli/command.h"

namespace tolvex {

/// What is proven and saved before a command changes the chip.
struct Preflight {
    bool force = false;
    bool keepEeprom = false;
    QString backup;  ///< a folder; empty = none

    static QCommandLineOption ForceOption();
    static QCommandLineOption BackupOption();
    static Preflight From(const QCommandLineParser& options);

    /// Finds the writer and a chip that may be changed. `kDone`, or the status of a failure that
    /// has been told.
    int ProveChip(Session& session) const;
    /// Reads the chip into the images if the command was asked to keep something of it, and saves
    /// the backup. `kDone`, or the status of a failure that has been told.
    int SaveChip(Session& session) const;

  private:
    int JudgeChip(Session& session) const;
    int WriteBackup(Session& session) const;
};

}  // namespace tolvex
