// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <array>
#include <cstdint>

namespace tolvex {

/// Which lock and fuse options a chip has.
enum class FuseGroup { LockOnly, FSTRT, RCEN, BOD_CKSEL };

/// The signature in the order in which the writer gives it: family, size code, vendor.
using Signature = std::array<std::uint8_t, 3>;

/// A row of the device catalogue.
struct DeviceRecord {
    QString name;               ///< the look-up key; untranslated
    std::uint8_t deviceCode{};  ///< the writer's own chip class, sent after 'T'
    std::int32_t flashWords{};  ///< 16-bit words
    std::int32_t eepromBytes{};
    FuseGroup fuseGroup = FuseGroup::LockOnly;
    Signature signature{};  ///< two rows may share one
};

/// The selected device: a copy of its row. Name and sizes are empty until the first selection.
using CurrentDevice = DeviceRecord;

/// The six option lists of the lock and fuse area.
enum class OptionList { FSTRT, RCEN, BODLEVEL, BODEN, CKSEL, LockBit };
inline constexpr OptionList kOptionLists[] = {OptionList::FSTRT,    OptionList::RCEN,
                                              OptionList::BODLEVEL, OptionList::BODEN,
                                              OptionList::CKSEL,    OptionList::LockBit};

/// The chosen entry of each option list; -1 = none. Only the lists of the device's fuse group and
/// the lock list count.
struct OptionChoice {
    std::array<int, std::size(kOptionLists)> entries{-1, -1, -1, -1, -1, -1};

    int& operator[](OptionList list) { return entries[static_cast<std::size_t>(list)]; }
    int operator[](OptionList list) const { return entries[static_cast<std::size_t>(list)]; }
    bool operator==(const OptionChoice&) const = default;
};

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
    int FlashWord(int word) const {
        const auto cell = 2 * static_cast<std::size_t>(word);
        return flash[cell] * 256 + flash[cell + 1];
    }
};

/// Both memories, or one of them.
struct Memories {
    bool flash = true;
    bool eeprom = true;

    bool Both() const { return flash && eeprom; }
};

}  // namespace tolvex
