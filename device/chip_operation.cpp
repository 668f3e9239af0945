// SPDX-License-Identifier: MIT
#include "device/chip_operation.h"

namespace tolvex {

void ChipOperation::Report(const QString& statusText, const QString& dialogText) const {
    person_.status.SetStatusText(kMessagePanel, statusText);
    person_.dialog.ShowMessage(MessageMode::Message, dialogText);
}

ChipOperation::PhaseEnd ChipOperation::EndPhase(Memory memory, const QString& statusText,
                                                const QString& dialogText) const {
    writer_.LeaveProgrammingMode(flag_);
    if (flag_.Failed()) {
        Report(statusText, dialogText);
        return {.succeeded = false, .listed = true};
    }
    const bool listed = memory == Memory::Flash ? listings_.RefreshFlashListing()
                                                : listings_.RefreshEepromListing();
    if (listed) {
        person_.dialog.CloseMessage();
    }
    return {.succeeded = true, .listed = listed};
}

}  // namespace tolvex
