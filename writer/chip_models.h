// SPDX-License-Identifier: MIT
#pragma once

#include <QStringView>
#include <array>
#include <cstdint>
#include <span>

namespace tolvex {

/// Which fuses a chip has and how the board hands them out.
enum class FuseLayout {
    None,     ///< lock bits only, and those can't be read back
    FSTRT,    ///< one fuse in bit 0; 'F' reads it together with the lock bits
    RCEN,     ///< the same shape, other meaning
    BodCksel  ///< five fuses in bits 4 to 0, read with 'r'; 'F' reads the lock bits alone
};

/// What the silicon of one chip is like.
struct ChipModel {
    QStringView name;                       ///< as the device list shows it
    std::array<std::uint8_t, 3> signature;  ///< vendor, size code, family: chip addresses 0, 1, 2
    int flashWords;                         ///< a power of two, 16-bit words
    int eepromBytes;                        ///< a power of two
    FuseLayout fuseLayout;
    std::uint8_t factoryFuses;  ///< unused bits 1
};

/// All chips in the order of the device list.
std::span<const ChipModel> ChipModels();

/// By list index "0" to "9", by the whole display name, or by the part number that the name begins
/// with, in any case of letters ("AT90S1200" is the chip with the external clock, "AT90S1200A" the
/// other). Null when there is no such chip.
const ChipModel* FindChipModel(QStringView text);

}  // namespace tolvex
