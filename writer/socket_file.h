// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <chrono>
#include <optional>

#include "writer/simulated_writer.h"

namespace tolvex {

/// A socket whose chips are changed while the board runs, by whoever writes the file that says what
/// is in it: nothing, or a chip's name and the state file that keeps it, with a blank between them.
class SocketFile {
  public:
    /// The writer is borrowed. `path`: a file that may be missing, which is an empty socket.
    SocketFile(const QString& path, SimulatedWriter& writer) : path_(path), writer_(writer) {}

    /// Looks at the file, not more often than makes sense. Nothing when it worked, else the reason.
    std::optional<QString> Look();
    /// Puts the chip into its state file. The same.
    std::optional<QString> Save() const;

  private:
    std::optional<QString> Insert(const QString& name, const QString& state);

    QString path_;
    SimulatedWriter& writer_;
    QString text_;   ///< of the file, as last seen
    QString state_;  ///< the chip's file
    std::optional<SimulatedChip> chip_ = {};
    std::chrono::steady_clock::time_point looked_ = {};
};

}  // namespace tolvex
