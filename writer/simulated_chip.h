// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <array>
#include <cstdint>

#include "writer/chip_models.h"

namespace tolvex {

/// Everything a chip holds, locked or not.
struct ChipContents {
    QByteArray flash;    ///< two bytes a word, the low one first, as in an Intel HEX file
    QByteArray eeprom;   ///< one byte an address
    std::uint8_t lock;   ///< bit 1 = LB1, bit 2 = LB2, the other bits 1; a cleared bit locks
    std::uint8_t fuses;  ///< bits as in ChipModel, unused ones 1

    bool operator==(const ChipContents&) const = default;
};

/// A chip in the socket that behaves as silicon does: programming Flash only clears bits until the
/// next erase, while an EEPROM write erases its cell first; a chip locked against writing silently
/// ignores writes; one locked against reading answers with addresses instead of data. Addresses
/// wrap within the chip's size, as address lines do.
class SimulatedChip {
  public:
    /// A factory-new chip: memories and lock bits all 1. `model` must outlive the chip.
    explicit SimulatedChip(const ChipModel& model);

    const ChipModel& Model() const { return *model_; }

    // As the programming interface sees it.
    std::array<std::uint8_t, 3> ReadSignature() const;
    std::uint8_t ReadFlashLow(int word) const { return ReadFlash(2 * word); }
    std::uint8_t ReadFlashHigh(int word) const { return ReadFlash(2 * word + 1); }
    void ProgramFlashLow(int word, std::uint8_t byte) { ProgramFlash(2 * word, byte); }
    void ProgramFlashHigh(int word, std::uint8_t byte) { ProgramFlash(2 * word + 1, byte); }
    std::uint8_t ReadEeprom(int address) const;
    void ProgramEeprom(int address, std::uint8_t byte);
    /// Memories and lock bits to 1; fuses stay.
    void Erase();
    /// Takes bytes of the form 111xx21x (a cleared bit locks) and ignores others, which would be
    /// another instruction to the chip.
    void ProgramLock(std::uint8_t byte);
    /// Takes bytes of the form 101fffff and ignores others. Fuses, unlike memory, can be set to 1
    /// again at any time while the chip is not locked.
    void ProgramFuses(std::uint8_t byte);

    bool WriteLocked() const { return (contents_.lock & kLb1) == 0; }
    bool ReadLocked() const { return (contents_.lock & (kLb1 | kLb2)) == 0; }

    // Past the lock bits: to prepare a chip and to look at the result.
    const ChipContents& Contents() const { return contents_; }
    /// The sizes must be those of the model; bits that the chip doesn't have become 1.
    void SetContents(const ChipContents& contents);

    /// From now on the cell keeps what it holds, whatever is programmed or erased; negative = none
    /// does. A byte address of the Flash, an address of the EEPROM.
    void WearOut(int flashByte, int eepromByte) {
        wornFlash_ = flashByte;
        wornEeprom_ = eepromByte;
    }

    static constexpr std::uint8_t kLb1 = 0x02;
    static constexpr std::uint8_t kLb2 = 0x04;

  private:
    std::uint8_t ReadFlash(int byteAddress) const;
    void ProgramFlash(int byteAddress, std::uint8_t byte);
    std::uint8_t FuseMask() const;

    const ChipModel* model_;
    ChipContents contents_;
    int wornFlash_ = -1, wornEeprom_ = -1;
};

}  // namespace tolvex
