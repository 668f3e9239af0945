// SPDX-License-Identifier: MIT
#include "device/program_operation.h"

#include "device/used_extent.h"

namespace tolvex {

using namespace Qt::StringLiterals;

ProgramResult ProgramOperation::ProgramChip() {
    ProgramResult result;
    person_.dialog.SetProgress(true, 0, 0, device_.flashWords - 1);
    person_.dialog.ShowMessage(MessageMode::Progress, u"Flash Program Memory Programming !"_s);

    int flashExtent = LastUsedWord(images_.flash, device_.flashWords);
    const int eepromExtent = LastUsedByte(images_.eeprom, device_.eepromBytes);
    if (flashExtent < 0 && eepromExtent < 0) {
        result.nothingToWrite = true;
        const QString cleared = u"Lock bit & プログラム/EEPROMデータ メモリクリアー完了。"_s;
        person_.dialog.ShowMessage(MessageMode::Message, cleared);
        person_.status.SetStatusText(kMessagePanel, cleared);
        return result;
    }
    if (flashExtent == 0) {
        flashExtent = 1;  // a lone first word goes out together with the second one
    }

    flag_.Clear();
    result.chip = check_.CheckDevice();
    if (flag_.Failed()) {
        person_.status.SetStatusText(kMessagePanel, u"プログラミングを中止しました。"_s);
        return result;
    }
    const PhaseEnd flash = ProgramFlash(flashExtent + 1);
    result.flashWritten = flash.succeeded;
    result.listed = flash.listed;
    if (!result.listed) {
        return result;
    }
    // Whatever became of the Flash, the EEPROM is still tried.
    flag_.Clear();
    const PhaseEnd eeprom = ProgramEeprom();
    result.eepromWritten = eeprom.succeeded;
    result.listed = eeprom.listed;
    if (result.listed) {
        result.verify = verify_.VerifyChip(VerifyMode::AfterProgram);
        result.listed = result.verify.listed;
    }
    return result;
}

ChipOperation::PhaseEnd ProgramOperation::ProgramFlash(int words) {
    writer_.EnterProgrammingMode(flag_);
    writer_.SetAddress(0, flag_);
    for (int word = 0; word < words; ++word) {
        person_.dialog.SetProgress(true, 0, word, words - 1);
        const auto cell = 2 * static_cast<std::size_t>(word);
        writer_.WriteProgramWord(images_.flash[cell], images_.flash[cell + 1], flag_);
    }
    return EndPhase(Memory::Flash, u"Flashメモリ ライト失敗"_s, u"Flashメモリ ライト失敗"_s);
}

ChipOperation::PhaseEnd ProgramOperation::ProgramEeprom() {
    const int bytes = device_.eepromBytes;
    person_.dialog.ShowMessage(MessageMode::Progress, u"EEPROM Data Memory Programming !"_s);
    writer_.EnterProgrammingMode(flag_);
    for (int address = 0; address < bytes; ++address) {
        person_.dialog.SetProgress(true, 0, address, bytes - 1);
        const std::uint8_t data = images_.eeprom[static_cast<std::size_t>(address)];
        if (data != kErased) {
            writer_.SetAddress(address, flag_);
            writer_.WriteDataByte(data, flag_);
        }
    }
    return EndPhase(Memory::Eeprom, u"EEPROMメモリ ライト失敗"_s, u"EEROMメモリ ライト失敗"_s);
}

}  // namespace tolvex
