// SPDX-License-Identifier: MIT
#pragma once

#include "device/chip_operation.h"

namespace tolvex {

/// Clears the chip's Flash, EEPROM and lock bits; the images stay.
class EraseOperation : ChipOperation {
  public:
    explicit EraseOperation(const Parts& parts) : ChipOperation(parts) {}

    /// Clears the error flag first, so that the flag afterwards tells of this erase alone.
    EraseResult EraseChip();
};

}  // namespace tolvex
