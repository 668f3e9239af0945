// SPDX-License-Identifier: MIT
#include "cli/write_plan.h"

#include <algorithm>

#include "device/device.h"

namespace tolvex {

namespace {

using Seconds = std::chrono::duration<double>;

// Bytes on the wire of a command with its reply. One waits for the other, so both count.
constexpr int kDetect = (1 + 7) + (1 + 2) + (1 + 2) + (3 + 1);
constexpr int kBracket = (1 + 1) + (1 + 1);
constexpr int kSignature = 1 + 3;
constexpr int kErase = 1 + 1;
constexpr int kAddress = 3 + 1;
constexpr int kWriteWord = 2 * (2 + 1);
constexpr int kReadWord = 1 + 2;
constexpr int kWriteByte = 2 + 1;
constexpr int kReadByte = 1 + 1;

/// 19200 baud, ten bits a byte, and the pauses after each bracket.
Seconds OnWire(int bytes, int brackets) {
    return Seconds(bytes / 1920.0) + brackets * Seconds(0.1);
}

/// Of one memory.
Seconds ReadTime(int words, int bytes = 0) {
    const int address = words > 0 ? kAddress : 0;
    return OnWire(
        kBracket + kSignature + address + words * kReadWord + bytes * (kAddress + kReadByte), 1);
}

}  // namespace

WritePlan PlanFor(const ProgramState& state) {
    const EepromImage& eeprom = state.images.eeprom;
    const int lastWord = LastUsedWord(state);
    const int extent = LastUsedByte(state) + 1;
    const auto blank = std::count(eeprom.begin(), eeprom.begin() + extent, kErased);
    return {.flashWords = lastWord < 0 ? 0 : std::max(lastWord, 1) + 1,
            .eepromBytes = extent - static_cast<int>(blank),
            .eepromExtent = extent};
}

Seconds EraseTime() {
    return OnWire(kDetect + kBracket + 2 * kSignature + kErase, 1);
}

Seconds ProgramTime(const WritePlan& plan, const CurrentDevice& device,
                    const std::optional<Memories>& whole) {
    const bool blank = plan.flashWords == 0 && plan.eepromBytes == 0;
    if (blank) {
        return EraseTime() + ReadTime(device.flashWords) + ReadTime(0, device.eepromBytes);
    }
    const int check = kBracket + kSignature;
    const int write = 2 * check + kAddress + plan.flashWords * kWriteWord +
                      plan.eepromBytes * (kAddress + kWriteByte);
    Seconds time = EraseTime() + OnWire(check + write, 3) + Seconds(1) +
                   ReadTime(std::max(plan.flashWords, 1)) +
                   ReadTime(0, std::max(plan.eepromExtent, 1));
    if (whole && whole->flash) {
        time += ReadTime(device.flashWords);
    }
    if (whole && whole->eeprom) {
        time += ReadTime(0, device.eepromBytes);
    }
    return time;
}

}  // namespace tolvex
