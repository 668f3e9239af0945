// SPDX-License-Identifier: MIT
#include "cli/wire_time.h"

#include <algorithm>

namespace tolvex {

namespace {

using Seconds = std::chrono::duration<double>;

constexpr double kBytesPerSecond = 19200.0 / 10;  // start bit, eight data bits, stop bit

// Bytes on the wire of a command with its reply. One waits for the other, so both count.
constexpr int kDetect = (1 + 7) + (1 + 2) + (1 + 2) + (3 + 1);
constexpr int kEnter = 1 + 1;
constexpr int kLeave = 1 + 1;
constexpr int kSignature = 1 + 3;
constexpr int kErase = 1 + 1;
constexpr int kAddress = 3 + 1;
constexpr int kWriteWord = 2 * (2 + 1);
constexpr int kReadWord = 1 + 2;
constexpr int kWriteByte = 2 + 1;
constexpr int kReadByte = 1 + 1;
constexpr int kBracket = kEnter + kLeave;

constexpr Seconds kLeavePause{0.1};
constexpr Seconds kCheckPause{1};

Seconds OnWire(int bytes) {
    return Seconds(bytes / kBytesPerSecond);
}

}  // namespace

Seconds EraseTime() {
    return OnWire(kDetect + kSignature + kBracket + kErase) + kLeavePause;
}

Seconds ProgramTime(const WritePlan& plan) {
    if (plan.flashWords == 0 && plan.eepromBytes == 0) {
        return EraseTime();
    }
    const int check = kBracket + kSignature;
    const int write = 2 * kBracket + kAddress + plan.flashWords * kWriteWord +
                      plan.eepromBytes * (kAddress + kWriteByte);
    const int verify = 2 * kBracket + kAddress + std::max(plan.flashWords, 1) * kReadWord +
                       std::max(plan.eepromExtent, 1) * (kAddress + kReadByte);
    return EraseTime() + kCheckPause + 5 * kLeavePause + OnWire(check + write + verify);
}

}  // namespace tolvex
