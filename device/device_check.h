// SPDX-License-Identifier: MIT
#pragma once

#include "device/chip_operation.h"

namespace tolvex {

/// Is there a chip in the socket, can it be read, is it of the selected size? A negative outcome
/// sets the error flag, and the person is told why.
class DeviceCheck : ChipOperation {
  public:
    explicit DeviceCheck(const Parts& parts) : ChipOperation(parts) {}

    /// The signature check inside a programming-mode bracket of its own.
    ChipReading CheckDevice();
    /// The signature alone; programming mode is the caller's business.
    ChipReading CheckSignature();
    /// From now on a chip of another size is still reported but no longer refused.
    void TolerateMismatch() { tolerant_ = true; }

  private:
    /// The size in words that the signature stands for; 0 when no reply came.
    int ReadSignature(ChipReading& reading);
    ChipVerdict Judge(std::uint8_t sizeCode, int flashWords);
    ChipVerdict Reject(ChipVerdict verdict, const QString& message);

    bool tolerant_ = false;
};

}  // namespace tolvex
