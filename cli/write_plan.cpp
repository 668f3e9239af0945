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
    return OnWire(kDetect + kSignature + kBracket + kErase, 1);
}

Seconds ProgramTime(const WritePlan& plan, const CurrentDevice& device) {
    const bool blank = plan.flashWords == 0 && plan.eepromBytes == 0;
    const int write = kAddress + plan.flashWords * kWriteWord +
                      plan.eepromBytes * (kAddress + kWriteByte) + 3 * kBracket + kSignature;
    const int words = blank ? device.flashWords : std::max(plan.flashWords, 1);
    const int bytes = blank ? device.eepromBytes : std::max(plan.eepromExtent, 1);
    const int read = kAddress + words * kReadWord + bytes * (kAddress + kReadByte) + 2 * kBracket;
    return EraseTime() + (blank ? OnWire(read, 2) : OnWire(write + read, 5) + Seconds(1));
}

}  // namespace tolvex
