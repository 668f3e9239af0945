// SPDX-License-Identifier: MIT
#pragma once

#include <QFile>
#include <QList>

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

    /// A cell whose content is not the image's: a Flash word or an EEPROM byte.
    struct Difference {
        bool flash;
        int address;
        int image;
        int chip;
    };
    /// What a run found.
    struct Findings {
        bool compared = false;  ///< both memories were gone through
        bool flashDiffers = false;
        bool eepromDiffers = false;
        bool flashFailed = false;  ///< a command of that phase failed: its comparison means nothing
        bool eepromFailed = false;
        QList<Difference> differences;

        bool Matches() const {
            return compared && !flashDiffers && !eepromDiffers && !flashFailed && !eepromFailed;
        }
    };

    bool VerifyChip(VerifyMode mode);
    /// Of the last run.
    const Findings& LastFindings() const { return findings_; }

  private:
    bool CompareMemories(VerifyMode mode);
    bool CompareFlash(int words, QFile& report);
    bool CompareEeprom(int bytes, QFile& report);
    bool Judge();

    OperationContext& context_;
    DeviceCheck& check_;
    Findings findings_;
};

}  // namespace tolvex
