// SPDX-License-Identifier: MIT
#include "device/program_operation.h"

#include "device/used_extent.h"

namespace tolvex {

using namespace Qt::StringLiterals;

bool ProgramOperation::ProgramChip() {
    outcome_ = {};
    const CurrentDevice& device = context_.device;
    context_.dialog.SetProgress(true, 0, 0, device.flashWords - 1);
    context_.dialog.ShowMessage(MessageMode::Progress, u"Flash Program Memory Programming !"_s);

    int flashExtent = LastUsedWord(context_.images.flash, device.flashWords);
    const int eepromExtent = LastUsedByte(context_.images.eeprom, device.eepromBytes);
    if (flashExtent < 0 && eepromExtent < 0) {
        outcome_.nothingToWrite = true;
        context_.Report(u"Lock bit & プログラム/EEPROMデータ メモリクリアー完了。"_s);
        return true;
    }
    if (flashExtent == 0) {
        flashExtent = 1;  // a lone first word goes out together with the second one
    }

    context_.errorFlag.Clear();
    check_.CheckDevice();
    if (context_.errorFlag.Failed()) {
        context_.status.SetStatusText(kMessagePanel, u"プログラミングを中止しました。"_s);
        return true;
    }
    outcome_.chipAccepted = true;
    if (!ProgramFlash(flashExtent + 1)) {
        return false;
    }
    // Whatever became of the Flash, the EEPROM is still tried.
    context_.errorFlag.Clear();
    return ProgramEeprom() && verify_.VerifyChip(VerifyMode::AfterProgram);
}

bool ProgramOperation::ProgramFlash(int words) {
    ErrorFlag& flag = context_.errorFlag;
    context_.writer.EnterProgrammingMode(flag);
    context_.writer.SetAddress(0, flag);
    for (int word = 0; word < words; ++word) {
        context_.dialog.SetProgress(true, 0, word, words - 1);
        const auto cell = static_cast<std::size_t>(2 * word);
        context_.writer.WriteProgramWord(context_.images.flash[cell],
                                         context_.images.flash[cell + 1], flag);
    }
    const bool ended = context_.EndPhase(OperationContext::Memory::Flash,
                                         u"Flashメモリ ライト失敗"_s, u"Flashメモリ ライト失敗"_s);
    outcome_.flashFailed = flag.Failed();
    return ended;
}

bool ProgramOperation::ProgramEeprom() {
    ErrorFlag& flag = context_.errorFlag;
    const int bytes = context_.device.eepromBytes;
    context_.dialog.ShowMessage(MessageMode::Progress, u"EEPROM Data Memory Programming !"_s);
    context_.writer.EnterProgrammingMode(flag);
    for (int address = 0; address < bytes; ++address) {
        context_.dialog.SetProgress(true, 0, address, bytes - 1);
        const std::uint8_t data = context_.images.eeprom[static_cast<std::size_t>(address)];
        if (data != kErased) {
            context_.writer.SetAddress(address, flag);
            context_.writer.WriteDataByte(data, flag);
        }
    }
    const bool ended = context_.EndPhase(OperationContext::Memory::Eeprom,
                                         u"EEPROMメモリ ライト失敗"_s, u"EEROMメモリ ライト失敗"_s);
    outcome_.eepromFailed = flag.Failed();
    return ended;
}

}  // namespace tolvex
