// SPDX-License-Identifier: MIT
#include "device/erase_operation.h"

namespace tolvex {

using namespace Qt::StringLiterals;

EraseResult EraseOperation::EraseChip() {
    person_.dialog.ShowMessage(MessageMode::Progress, u"Eraseing Flash & EEPROM memory !"_s);
    flag_.Clear();
    writer_.EnterProgrammingMode(flag_);
    writer_.ChipErase(flag_);
    const PhaseEnd end = EndPhase(Memory::Eeprom, u"Flash & EEPROM メモリクリアー失敗"_s,
                                  u"Flash & EEPROM メモリクリアー失敗"_s);
    return {.erased = end.succeeded, .listed = end.listed};
}

}  // namespace tolvex
