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

  private:
    bool ReadFlash(bool& answered);
    bool ReadEeprom();

    OperationContext& context_;
    DeviceCheck& check_;
};

}  // namespace tolvex
