// SPDX-License-Identifier: MIT
#include "device/erase_operation.h"

namespace tolvex {

using namespace Qt::StringLiterals;

bool EraseOperation::EraseChip() {
    ErrorFlag& flag = context_.errorFlag;
    context_.dialog.ShowMessage(MessageMode::Progress, u"Eraseing Flash & EEPROM memory !"_s);
    flag.Clear();
    context_.writer.EnterProgrammingMode(flag);
    context_.writer.ChipErase(flag);
    context_.writer.LeaveProgrammingMode(flag);
    erased_ = !flag.Failed();
    if (!erased_) {
        context_.Report(u"Flash & EEPROM メモリクリアー失敗"_s);
        return true;
    }
    if (!context_.RebuildEepromListing()) {
        return false;
    }
    context_.dialog.CloseMessage();
    return true;
}

}  // namespace tolvex
