// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstdint>

namespace tolvex {

inline constexpr std::uint8_t kErased = 0xFF;

/// The chip's program memory. Word w lies in cells 2w (high byte) and 2w + 1 (low byte), the
/// reverse of the byte order in an Intel HEX file. Cell 65536 is never filled from a file.
using FlashImage = std::array<std::uint8_t, 65537>;
/// The chip's data memory: byte address a is cell a.
using EepromImage = std::array<std::uint8_t, 2049>;

/// The PC's copy of both memories. Their size never changes; how much of them is in use follows
/// the selected device.
struct MemoryImages {
    FlashImage flash;
    EepromImage eeprom;

    MemoryImages() {
        ClearFlashImage();
        ClearEepromImage();
    }
    void ClearFlashImage() { flash.fill(kErased); }
    void ClearEepromImage() { eeprom.fill(kErased); }
};

}  // namespace tolvex
