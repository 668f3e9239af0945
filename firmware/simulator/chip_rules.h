// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <cstdint>

#include "writer/chip_models.h"

namespace tolvex {

/// What a byte reads as while it is being written.
struct BusyValues {
    std::uint8_t first;   ///< P1, in the first part of the write
    std::uint8_t second;  ///< P2, until it is done
};

/// What a chip demands and how long it takes, as its data sheet's sections "Data Polling", "Serial
/// Programming" and "Serial Programming Characteristics" say. The firmware has a table of its own:
/// the two are written from the data sheets apart from each other, and neither is made from the
/// other.
struct ChipRules {
    BusyValues flash, eeprom;
    std::chrono::milliseconds byteWrite;           ///< tWD_PROG at 5 V
    std::chrono::milliseconds byteWriteLowSupply;  ///< tWD_PROG at the lowest supply
    std::chrono::milliseconds bitsWrite;           ///< lock and fuse bits at 5 V
    std::chrono::milliseconds bitsWriteLowSupply;
    std::chrono::milliseconds erase;  ///< tWD_ERASE
    int sckHighClocks;                ///< SCK must be high for more than so many chip clocks
    int sckLowClocks;                 ///< and low for more than so many
    bool echoes;                      ///< shifts out what it took, a byte later
};

/// `model` is one of `ChipModels()`.
ChipRules RulesOf(const ChipModel& model);

}  // namespace tolvex
