// SPDX-License-Identifier: MIT
#pragma once

#include "device/operation_context.h"

namespace tolvex {

/// Clears the chip's Flash, EEPROM and lock bits; the images stay.
class EraseOperation {
  public:
    explicit EraseOperation(OperationContext& context) : context_(context) {}

    /// Clears the error flag first, so that the flag afterwards tells of this erase alone.
    bool EraseChip();

  private:
    OperationContext& context_;
};

}  // namespace tolvex
