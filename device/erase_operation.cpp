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
    const bool ended =
        context_.EndPhase(OperationContext::Memory::Eeprom, u"Flash & EEPROM メモリクリアー失敗"_s,
                          u"Flash & EEPROM メモリクリアー失敗"_s);
    erased_ = !flag.Failed();
    return ended;
}

}  // namespace tolvex
