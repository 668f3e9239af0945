// SPDX-License-Identifier: MIT
#pragma once

#include "device/device_check.h"

namespace tolvex {

/// Copies the whole chip into the images, cell by cell as the replies arrive.
class ReadOperation : ChipOperation {
  public:
    ReadOperation(const Parts& parts, DeviceCheck& check) : ChipOperation(parts), check_(check) {}

    ReadResult ReadChip();

  private:
    /// Nothing: a word got no reply, which ends the read where it stands.
    std::optional<PhaseEnd> ReadFlash();
    PhaseEnd ReadEeprom();

    DeviceCheck& check_;
};

}  // namespace tolvex
