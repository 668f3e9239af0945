// SPDX-License-Identifier: MIT
// Erase, read and program. Each phase works on one memory between entering and leaving programming
// mode. A failing command does not stop its phase, which reports once at its end.
#include "base/text.h"
#include "device/device.h"

namespace tolvex {

using namespace Qt::StringLiterals;

namespace {

enum class Memory { Flash, Eeprom };

/// Leaves programming mode, with proof; then tells a failure, or rewrites the memory's listing and
/// closes the dialog.
PhaseResult EndPhase(const ChipContext& context, Memory memory, const QString& statusText,
                     const QString& dialogText) {
    LeaveWithProof(context);
    if (context.state.errorFlag.Failed()) {
        context.ui.SetStatusText(kMessagePanel, statusText, MessageKind::Failure);
        context.ui.ShowMessage(MessageKind::Failure, dialogText);
        return {.succeeded = false, .listingsUpdated = true};
    }
    const bool updated = memory == Memory::Flash ? context.listings.RefreshFlashListing()
                                                 : context.listings.RefreshEepromListing();
    if (updated) {
        context.ui.CloseMessage();
    }
    return {.succeeded = true, .listingsUpdated = updated};
}

/// Nothing: a word got no reply, which ends the read where it stands. Programming mode is then not
/// left, and the progress text stays.
std::optional<PhaseResult> ReadFlash(const ChipContext& context) {
    const int words = context.state.device.flashWords;
    FlashImage& flash = context.state.images.flash;
    context.ui.SetProgress(true, 0, 0, words - 1);
    context.commands.EnterProgrammingMode();
    context.commands.SetAddress(0);
    for (int word = 0; word < words; ++word) {
        context.ui.SetProgress(true, 0, word, words - 1);
        const auto cell = 2 * static_cast<std::size_t>(word);
        if (context.commands.ReadProgramWord(flash[cell], flash[cell + 1]) != Outcome::Ok) {
            return std::nullopt;
        }
    }
    return EndPhase(context, Memory::Flash, Text::tr("Flashメモリ リード失敗"),
                    Text::tr("Flashメモリ リード失敗"));
}

PhaseResult ReadEeprom(const ChipContext& context) {
    const int bytes = context.state.device.eepromBytes;
    context.ui.ShowMessage(MessageKind::Progress, Text::tr("EEPROM Data Memory Reading !"));
    context.state.errorFlag.Clear();
    context.commands.EnterProgrammingMode();
    // A failed read stores what the last successful one gave.
    std::uint8_t data = 0;
    for (int address = 0; address < bytes; ++address) {
        context.ui.SetProgress(true, 0, address, bytes - 1);
        context.commands.SetAddress(address);
        context.commands.ReadDataByte(data);
        context.state.images.eeprom[static_cast<std::size_t>(address)] = data;
    }
    return EndPhase(context, Memory::Eeprom, Text::tr("EEPROMメモリ リード失敗"),
                    Text::tr("EEROMメモリ リード失敗"));
}

PhaseResult ProgramFlash(const ChipContext& context, int words) {
    const FlashImage& flash = context.state.images.flash;
    context.commands.EnterProgrammingMode();
    context.commands.SetAddress(0);
    for (int word = 0; word < words; ++word) {
        context.ui.SetProgress(true, 0, word, words - 1);
        const auto cell = 2 * static_cast<std::size_t>(word);
        context.commands.WriteProgramWord(flash[cell], flash[cell + 1]);
    }
    return EndPhase(context, Memory::Flash, Text::tr("Flashメモリ ライト失敗"),
                    Text::tr("Flashメモリ ライト失敗"));
}

PhaseResult ProgramEeprom(const ChipContext& context) {
    const int bytes = context.state.device.eepromBytes;
    context.ui.ShowMessage(MessageKind::Progress, Text::tr("EEPROM Data Memory Programming !"));
    context.commands.EnterProgrammingMode();
    for (int address = 0; address < bytes; ++address) {
        context.ui.SetProgress(true, 0, address, bytes - 1);
        const std::uint8_t data = context.state.images.eeprom[static_cast<std::size_t>(address)];
        if (data != kErased) {
            context.commands.SetAddress(address);
            context.commands.WriteDataByte(data);
        }
    }
    return EndPhase(context, Memory::Eeprom, Text::tr("EEPROMメモリ ライト失敗"),
                    Text::tr("EEROMメモリ ライト失敗"));
}

template <typename Image>
int LastUsedCell(const Image& image, int cells) {
    int last = cells - 1;
    while (last >= 0 && image[static_cast<std::size_t>(last)] == kErased) {
        --last;
    }
    return last;
}

}  // namespace

int LastUsedWord(const ProgramState& state) {
    const int cell = LastUsedCell(state.images.flash, 2 * state.device.flashWords);
    return cell < 0 ? -1 : cell / 2;
}

int LastUsedByte(const ProgramState& state) {
    return LastUsedCell(state.images.eeprom, state.device.eepromBytes);
}

PhaseResult EraseChip(const ChipContext& context) {
    const QString failed = Text::tr("Flash & EEPROM メモリクリアー失敗");
    context.ui.ShowMessage(MessageKind::Progress, Text::tr("Eraseing Flash & EEPROM memory !"));
    context.state.errorFlag.Clear();
    context.commands.EnterProgrammingMode();
    if (IsStillProven(context)) {
        context.commands.ChipErase();
    }
    return EndPhase(context, Memory::Eeprom, failed, failed);
}

ReadResult ReadChip(const ChipContext& context) {
    ReadResult result;
    context.ui.ShowMessage(MessageKind::Progress, Text::tr("Flash Program Memory Reading !"));
    context.state.errorFlag.Clear();
    result.chip = CheckDevice(context);
    if (!result.chip.Passed()) {
        context.ui.SetStatusText(kMessagePanel, Text::tr("リードを中止しました。"),
                                 MessageKind::Failure);
        return result;
    }
    const auto flash = ReadFlash(context);
    if (!flash) {
        return result;
    }
    result.flashRead = flash->succeeded;
    result.listingsUpdated = flash->listingsUpdated;
    if (result.listingsUpdated) {
        const PhaseResult eeprom = ReadEeprom(context);
        result.eepromRead = eeprom.succeeded;
        result.listingsUpdated = eeprom.listingsUpdated;
    }
    return result;
}

ProgramResult ProgramChip(const ChipContext& context) {
    ProgramResult result;
    context.ui.SetProgress(true, 0, 0, context.state.device.flashWords - 1);
    context.ui.ShowMessage(MessageKind::Progress, Text::tr("Flash Program Memory Programming !"));

    int lastWord = LastUsedWord(context.state);
    if (lastWord < 0 && LastUsedByte(context.state) < 0) {
        result.nothingToWrite = true;
        const QString cleared = Text::tr("Lock bit & プログラム/EEPROMデータ メモリクリアー完了。");
        context.ui.ShowMessage(MessageKind::Result, cleared);
        context.ui.SetStatusText(kMessagePanel, cleared, MessageKind::Result);
        return result;
    }
    if (lastWord == 0) {
        lastWord = 1;  // a lone first word goes out together with the second one
    }

    context.state.errorFlag.Clear();
    result.chip = CheckDevice(context);
    if (!result.chip.Passed()) {
        context.ui.SetStatusText(kMessagePanel, Text::tr("プログラミングを中止しました。"),
                                 MessageKind::Failure);
        return result;
    }
    const PhaseResult flash = ProgramFlash(context, lastWord + 1);
    result.flashWritten = flash.succeeded;
    result.listingsUpdated = flash.listingsUpdated;
    if (!result.listingsUpdated) {
        return result;
    }
    // Whatever became of the Flash, the EEPROM is still tried.
    context.state.errorFlag.Clear();
    const PhaseResult eeprom = ProgramEeprom(context);
    result.eepromWritten = eeprom.succeeded;
    result.listingsUpdated = eeprom.listingsUpdated;
    if (result.listingsUpdated) {
        result.verify = VerifyChip(context, VerifyMode::AfterProgram);
        result.listingsUpdated = result.verify.listingsUpdated;
    }
    return result;
}

}  // namespace tolvex
