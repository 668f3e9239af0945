// SPDX-License-Identifier: MIT
#pragma once

#include "device/device_check.h"
#include "device/operation_context.h"
#include "device/verify_operation.h"

namespace tolvex {

/// Writes both images into the chip and verifies them. It never erases: that has been done.
class ProgramOperation {
  public:
    ProgramOperation(OperationContext& context, DeviceCheck& check, VerifyOperation& verify)
        : context_(context), check_(check), verify_(verify) {}

    bool ProgramChip();

  private:
    bool ProgramFlash(int words);
    bool ProgramEeprom();

    OperationContext& context_;
    DeviceCheck& check_;
    VerifyOperation& verify_;
};

}  // namespace tolvex
