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
    /// Whether the last run went without a failed command.
    bool Erased() const { return erased_; }

  private:
    OperationContext& context_;
    bool erased_ = false;
};

}  // namespace tolvex
