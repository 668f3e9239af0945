// SPDX-License-Identifier: MIT
#include "device/operation_context.h"

namespace tolvex {

void OperationContext::Report(const QString& text) const {
    status.SetStatusText(kMessagePanel, text);
    dialog.ShowMessage(MessageMode::Message, text);
}

bool OperationContext::EndPhase(Memory memory, const QString& statusText,
                                const QString& dialogText) const {
    writer.LeaveProgrammingMode(errorFlag);
    if (errorFlag.Failed()) {
        status.SetStatusText(kMessagePanel, statusText);
        dialog.ShowMessage(MessageMode::Message, dialogText);
        return true;
    }
    const bool rebuilt = memory == Memory::Flash
                             ? listings.WriteFlashListing() && listings.ShowFlashListing()
                             : listings.WriteEepromListing() && listings.ShowEepromListing();
    if (rebuilt) {
        dialog.CloseMessage();
    }
    return rebuilt;
}

}  // namespace tolvex
