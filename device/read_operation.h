// SPDX-License-Identifier: MIT
#pragma once

#include "device/device_check.h"
#include "device/operation_context.h"

namespace tolvex {

/// Copies the whole chip into the images, cell by cell as the replies arrive.
class ReadOperation {
  public:
    ReadOperation(OperationContext& context, DeviceCheck& check)
        : context_(context), check_(check) {}

    bool ReadChip();
    /// Whether the last run filled both images without a failed command.
    bool Complete() const { return complete_; }

  private:
    bool ReadFlash(bool& answered);
    bool ReadEeprom();

    OperationContext& context_;
    DeviceCheck& check_;
    bool complete_ = false;
};

}  // namespace tolvex
