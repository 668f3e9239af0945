// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>

namespace tolvex {

/// What is written into the chip.
struct WritePlan {
    int flashWords = 0;
    int eepromBytes = 0;   ///< programmed, blank ones are not
    int eepromExtent = 0;  ///< verified: up to the last used one
};

/// How long the Program button's chain takes on the wire, with its fixed pauses, when the writer
/// answers at once.
std::chrono::duration<double> ProgramTime(const WritePlan& plan);
/// The same of the Erase button's.
std::chrono::duration<double> EraseTime();

}  // namespace tolvex
