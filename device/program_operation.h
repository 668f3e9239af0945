// SPDX-License-Identifier: MIT
#pragma once

#include "device/device_check.h"
#include "device/verify_operation.h"

namespace tolvex {

/// Writes both images into the chip and verifies them. It never erases: that has been done.
class ProgramOperation : ChipOperation {
  public:
    ProgramOperation(const Parts& parts, DeviceCheck& check, VerifyOperation& verify)
        : ChipOperation(parts), check_(check), verify_(verify) {}

    ProgramResult ProgramChip();

  private:
    PhaseEnd ProgramFlash(int words);
    PhaseEnd ProgramEeprom();

    DeviceCheck& check_;
    VerifyOperation& verify_;
};

}  // namespace tolvex
