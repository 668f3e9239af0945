// SPDX-License-Identifier: MIT
#pragma once

#include <QFile>

#include "device/device_check.h"
#include "device/operation_context.h"

namespace tolvex {

enum class VerifyMode {
    WholeChip,     ///< stand-alone: check the device, then compare both memories whole
    AfterProgram,  ///< only as far as the images reach; the device has just been checked
};

/// Compares the chip with the images and writes every difference into the report `avrvfy.txt`.
class VerifyOperation {
  public:
    VerifyOperation(OperationContext& context, DeviceCheck& check)
        : context_(context), check_(check) {}

    bool VerifyChip(VerifyMode mode);

  private:
    /// What the two phases found.
    struct Findings {
        bool flashDiffers = false;
        bool eepromDiffers = false;
        bool eepromFailed = false;
    };

    bool CompareMemories(VerifyMode mode, Findings& findings);
    bool CompareFlash(int words, QFile& report);
    bool CompareEeprom(int bytes, QFile& report);
    bool Judge(const Findings& findings);

    OperationContext& context_;
    DeviceCheck& check_;
};

}  // namespace tolvex
