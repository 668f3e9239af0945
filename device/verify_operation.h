// SPDX-License-Identifier: MIT
#pragma once

#include "device/device_check.h"

namespace tolvex {

enum class VerifyMode {
    WholeChip,     ///< stand-alone: check the device, then compare both memories whole
    AfterProgram,  ///< only as far as the images reach; the device has just been checked
};

/// Compares the chip with the images and writes every difference into the verify report.
class VerifyOperation : ChipOperation {
  public:
    VerifyOperation(const Parts& parts, DeviceCheck& check) : ChipOperation(parts), check_(check) {}

    VerifyResult VerifyChip(VerifyMode mode);

  private:
    void CompareFlash(int words, VerifyResult& result);
    void CompareEeprom(int bytes, VerifyResult& result);
    void Judge(VerifyResult& result);

    DeviceCheck& check_;
};

}  // namespace tolvex
