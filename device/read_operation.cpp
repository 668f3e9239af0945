// SPDX-License-Identifier: MIT
#include "device/read_operation.h"

namespace tolvex {

using namespace Qt::StringLiterals;

ReadResult ReadOperation::ReadChip() {
    ReadResult result;
    person_.dialog.ShowMessage(MessageMode::Progress, u"Flash Program Memory Reading !"_s);
    flag_.Clear();
    result.chip = check_.CheckDevice();
    if (flag_.Failed()) {
        person_.status.SetStatusText(kMessagePanel, u"リードを中止しました。"_s);
        return result;
    }
    const auto flash = ReadFlash();
    if (!flash) {
        return result;
    }
    result.flashRead = flash->succeeded;
    result.listed = flash->listed;
    if (result.listed) {
        const PhaseEnd eeprom = ReadEeprom();
        result.eepromRead = eeprom.succeeded;
        result.listed = eeprom.listed;
    }
    return result;
}

/// After a silent word programming mode is not left, and the progress text stays.
std::optional<ChipOperation::PhaseEnd> ReadOperation::ReadFlash() {
    const int words = device_.flashWords;
    person_.dialog.SetProgress(true, 0, 0, words - 1);
    writer_.EnterProgrammingMode(flag_);
    writer_.SetAddress(0, flag_);
    for (int word = 0; word < words; ++word) {
        person_.dialog.SetProgress(true, 0, word, words - 1);
        const auto cell = 2 * static_cast<std::size_t>(word);
        if (!writer_.ReadProgramWord(images_.flash[cell], images_.flash[cell + 1], flag_)) {
            return std::nullopt;
        }
    }
    return EndPhase(Memory::Flash, u"Flashメモリ リード失敗"_s, u"Flashメモリ リード失敗"_s);
}

ChipOperation::PhaseEnd ReadOperation::ReadEeprom() {
    const int bytes = device_.eepromBytes;
    person_.dialog.ShowMessage(MessageMode::Progress, u"EEPROM Data Memory Reading !"_s);
    flag_.Clear();
    writer_.EnterProgrammingMode(flag_);
    // A failed read stores what the last successful one gave.
    std::uint8_t data = 0;
    for (int address = 0; address < bytes; ++address) {
        person_.dialog.SetProgress(true, 0, address, bytes - 1);
        writer_.SetAddress(address, flag_);
        writer_.ReadDataByte(data, flag_);
        images_.eeprom[static_cast<std::size_t>(address)] = data;
    }
    return EndPhase(Memory::Eeprom, u"EEPROMメモリ リード失敗"_s, u"EEROMメモリ リード失敗"_s);
}

}  // namespace tolvex
