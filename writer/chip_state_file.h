// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <optional>
#include <variant>

#include "writer/simulated_chip.h"

namespace tolvex {

/// A chip out of a state file, or why there is none.
using LoadedChip = std::variant<SimulatedChip, QString>;

/// The file is JSON: "device" (the display name), "flash" and "eeprom" (hex digits; in Flash the
/// low byte of each word first), "lock" and "fuse" (two hex digits). A chip is loaded whole or not
/// at all.
LoadedChip LoadChip(const QString& path);

/// Replaces the file in one step. Nothing when it worked, else the reason.
std::optional<QString> SaveChip(const SimulatedChip& chip, const QString& path);

}  // namespace tolvex
