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

    /// How a run ended; whether the chip then holds the images is the verify's to say.
    struct Outcome {
        bool nothingToWrite = false;  ///< both images are blank: no command was sent
        bool chipAccepted = false;
        bool flashFailed = false;
        bool eepromFailed = false;
    };

    bool ProgramChip();
    /// Of the last run.
    const Outcome& LastOutcome() const { return outcome_; }

  private:
    bool ProgramFlash(int words);
    bool ProgramEeprom();

    OperationContext& context_;
    DeviceCheck& check_;
    VerifyOperation& verify_;
    Outcome outcome_;
};

}  // namespace tolvex
