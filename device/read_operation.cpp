// SPDX-License-Identifier: MIT
#include "device/read_operation.h"

namespace tolvex {

using namespace Qt::StringLiterals;

bool ReadOperation::ReadChip() {
    complete_ = false;
    context_.dialog.ShowMessage(MessageMode::Progress, u"Flash Program Memory Reading !"_s);
    context_.errorFlag.Clear();
    check_.CheckDevice();
    if (context_.errorFlag.Failed()) {
        context_.status.SetStatusText(kMessagePanel, u"リードを中止しました。"_s);
        return true;
    }
    bool answered = true;
    if (!ReadFlash(answered)) {
        return false;
    }
    return !answered || ReadEeprom();
}

/// A word that gets no reply ends the whole read where it stands: programming mode is not left, and
/// the progress text stays.
bool ReadOperation::ReadFlash(bool& answered) {
    ErrorFlag& flag = context_.errorFlag;
    const int words = context_.device.flashWords;
    context_.dialog.SetProgress(true, 0, 0, words - 1);
    context_.writer.EnterProgrammingMode(flag);
    context_.writer.SetAddress(0, flag);
    for (int word = 0; word < words; ++word) {
        context_.dialog.SetProgress(true, 0, word, words - 1);
        const auto cell = static_cast<std::size_t>(2 * word);
        answered = context_.writer.ReadProgramWord(context_.images.flash[cell],
                                                   context_.images.flash[cell + 1], flag);
        if (!answered) {
            return true;
        }
    }
    const bool ended = context_.EndPhase(OperationContext::Memory::Flash,
                                         u"Flashメモリ リード失敗"_s, u"Flashメモリ リード失敗"_s);
    complete_ = !flag.Failed();
    return ended;
}

bool ReadOperation::ReadEeprom() {
    ErrorFlag& flag = context_.errorFlag;
    const int bytes = context_.device.eepromBytes;
    context_.dialog.ShowMessage(MessageMode::Progress, u"EEPROM Data Memory Reading !"_s);
    flag.Clear();
    context_.writer.EnterProgrammingMode(flag);
    // A failed read stores what the last successful one gave.
    std::uint8_t data = 0;
    for (int address = 0; address < bytes; ++address) {
        context_.dialog.SetProgress(true, 0, address, bytes - 1);
        context_.writer.SetAddress(address, flag);
        context_.writer.ReadDataByte(data, flag);
        context_.images.eeprom[static_cast<std::size_t>(address)] = data;
    }
    const bool ended = context_.EndPhase(OperationContext::Memory::Eeprom,
                                         u"EEPROMメモリ リード失敗"_s, u"EEROMメモリ リード失敗"_s);
    complete_ = complete_ && !flag.Failed();
    return ended;
}

}  // namespace tolvex
