// SPDX-License-Identifier: MIT
#include "writer/simulated_chip.h"

namespace tolvex {

namespace {

constexpr std::uint8_t kLockMask = SimulatedChip::kLb1 | SimulatedChip::kLb2;
constexpr std::uint8_t kPrefixMask = 0xE0;
constexpr std::uint8_t kLockPrefix = 0xE0;
constexpr std::uint8_t kFusePrefix = 0xA0;

qsizetype Wrap(int address, const QByteArray& memory) {
    return address & (memory.size() - 1);
}

std::uint8_t Cell(const QByteArray& memory, int address) {
    return static_cast<std::uint8_t>(memory[Wrap(address, memory)]);
}

void FillBut(int worn, QByteArray& memory) {
    const char kept = worn < 0 ? '\xFF' : memory[worn];
    memory.fill('\xFF');
    memory[std::max(worn, 0)] = kept;
}

std::uint8_t WithUnusedBitsSet(int byte, std::uint8_t used) {
    return static_cast<std::uint8_t>(byte | ~used);
}

}  // namespace

SimulatedChip::SimulatedChip(const ChipModel& model)
    : model_(&model),
      contents_{QByteArray(2 * model.flashWords, '\xFF'), QByteArray(model.eepromBytes, '\xFF'),
                0xFF, model.factoryFuses} {}

std::array<std::uint8_t, 3> SimulatedChip::ReadSignature() const {
    return ReadLocked() ? std::array<std::uint8_t, 3>{0, 1, 2} : model_->signature;
}

std::uint8_t SimulatedChip::ReadFlash(int byteAddress) const {
    return ReadLocked() ? static_cast<std::uint8_t>(byteAddress)
                        : Cell(contents_.flash, byteAddress);
}

void SimulatedChip::ProgramFlash(int byteAddress, std::uint8_t byte) {
    const qsizetype place = Wrap(byteAddress, contents_.flash);
    if (!WriteLocked() && place != wornFlash_) {
        char& cell = contents_.flash[place];
        cell = static_cast<char>(cell & static_cast<char>(byte));
    }
}

std::uint8_t SimulatedChip::ReadEeprom(int address) const {
    return ReadLocked() ? static_cast<std::uint8_t>(address) : Cell(contents_.eeprom, address);
}

void SimulatedChip::ProgramEeprom(int address, std::uint8_t byte) {
    const qsizetype place = Wrap(address, contents_.eeprom);
    if (!WriteLocked() && place != wornEeprom_) {
        contents_.eeprom[place] = static_cast<char>(byte);
    }
}

void SimulatedChip::Erase() {
    FillBut(wornFlash_, contents_.flash);
    FillBut(wornEeprom_, contents_.eeprom);
    contents_.lock = 0xFF;
}

void SimulatedChip::ProgramLock(std::uint8_t byte) {
    if ((byte & kPrefixMask) == kLockPrefix) {
        contents_.lock = WithUnusedBitsSet(contents_.lock & byte, kLockMask);
    }
}

void SimulatedChip::ProgramFuses(std::uint8_t byte) {
    if (!WriteLocked() && (byte & kPrefixMask) == kFusePrefix) {
        contents_.fuses = WithUnusedBitsSet(byte, FuseMask());
    }
}

void SimulatedChip::SetContents(const ChipContents& contents) {
    Q_ASSERT(contents.flash.size() == contents_.flash.size());
    Q_ASSERT(contents.eeprom.size() == contents_.eeprom.size());
    contents_ = contents;
    contents_.lock = WithUnusedBitsSet(contents.lock, kLockMask);
    contents_.fuses = WithUnusedBitsSet(contents.fuses, FuseMask());
}

std::uint8_t SimulatedChip::FuseMask() const {
    switch (model_->fuseLayout) {
        case FuseLayout::None:
            return 0x00;
        case FuseLayout::FSTRT:
        case FuseLayout::RCEN:
            return 0x01;
        case FuseLayout::BodCksel:
            return 0x1F;
    }
    return 0x00;
}

}  // namespace tolvex
