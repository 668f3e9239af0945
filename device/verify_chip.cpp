// SPDX-License-Identifier: MIT
#include <algorithm>

#include "base/text.h"
#include "device/device.h"

namespace tolvex {

using namespace Qt::StringLiterals;

namespace {

QString ReportLine(const Difference& d) {
    const QString text =
        d.flash ? u"Flash  Address(word) = %1  Original Data = %2   NG Data = %3\r\n"_s
                : u"EEPROM Address(byte) = %1  Original Data = %2   NG Data = %3\r\n"_s;
    const auto hex = d.flash ? HexWord4 : HexByte;
    return text.arg(HexWord4(d.address), hex(d.image), hex(d.chip));
}

QByteArray Report(const QList<Difference>& differences) {
    QString flash;
    QString eeprom;
    for (const Difference& difference : differences) {
        (difference.flash ? flash : eeprom) += ReportLine(difference);
    }
    const QString text = u"Flash Program memory address verify\r\n\r\n"_s + flash +
                         u"\r\nEEPROM data memory address verify\r\n\r\n"_s + eeprom;
    return text.toLatin1();
}

void CompareFlash(const ChipContext& context, int words, VerifyResult& result) {
    context.state.errorFlag.Clear();
    context.commands.EnterProgrammingMode();
    context.commands.SetAddress(0);
    // A failed read leaves these alone: the comparison then goes by the last successful one.
    std::uint8_t high = 0;
    std::uint8_t low = 0;
    for (int word = 0; word < words; ++word) {
        context.ui.SetProgress(true, 0, word, words - 1);
        context.commands.ReadProgramWord(high, low);
        const int image = context.state.images.FlashWord(word);
        const int chip = high * 256 + low;
        if (chip != image) {
            result.differences << Difference{true, word, image, chip};
        }
    }
    LeaveWithProof(context);
    result.flashCompared = !context.state.errorFlag.Failed();
    if (!result.flashCompared) {
        context.ui.Tell(MessageKind::Failure, Text::tr("Flash メモリ ベリファイ失敗"));
    }
}

void CompareEeprom(const ChipContext& context, int bytes, VerifyResult& result) {
    context.ui.ShowMessage(MessageKind::Progress, Text::tr("EEPROM Data Memory Verifying !"));
    context.state.errorFlag.Clear();
    context.commands.EnterProgrammingMode();
    std::uint8_t chip = 0;
    for (int address = 0; address < bytes; ++address) {
        context.ui.SetProgress(true, 0, address, bytes - 1);
        context.commands.SetAddress(address);
        context.commands.ReadDataByte(chip);
        const std::uint8_t image = context.state.images.eeprom[static_cast<std::size_t>(address)];
        if (chip != image) {
            result.differences << Difference{false, address, image, chip};
        }
    }
    LeaveWithProof(context);
    result.eepromCompared = !context.state.errorFlag.Failed();
}

/// A Flash command that failed has been told by its phase; the summary goes by what was compared.
/// False: the report could not be shown.
bool Judge(const ChipContext& context, const VerifyResult& result) {
    if (!result.eepromCompared) {
        context.ui.Tell(MessageKind::Failure, Text::tr("ベリファイ　通信エラー"));
        return true;
    }
    if (!result.differences.isEmpty() && !context.listings.ShowVerifyReport()) {
        return false;
    }
    const QString flash = result.Differs(true) ? u"NG"_s : u"OK"_s;
    const QString eeprom = result.Differs(false) ? u"NG"_s : u"OK"_s;
    context.ui.Tell(MessageKind::Result,
                    Text::tr("ベリファイ　FLASH : %1 / EEPROM : %2").arg(flash, eeprom));
    return true;
}

}  // namespace

bool VerifyResult::Differs(bool flash) const {
    return std::ranges::find(differences, flash, &Difference::flash) != differences.end();
}

VerifyResult VerifyChip(const ChipContext& context, VerifyMode mode) {
    VerifyResult result;
    const CurrentDevice& device = context.state.device;
    const bool whole = mode == VerifyMode::WholeChip;
    context.ui.SetProgress(true, 0, 0, device.flashWords - 1);
    context.ui.ShowMessage(MessageKind::Progress, Text::tr("Flash Program Memory Verifying !"));
    context.state.errorFlag.Clear();
    if (whole) {
        result.chip = CheckDevice(context);
        if (!result.chip.Passed()) {
            context.ui.SetStatusText(kMessagePanel, Text::tr("ベリファイを中止しました。"),
                                     MessageKind::Failure);
            return result;
        }
    }
    // After programming up to the last used cell, at least one.
    const int words = whole ? device.flashWords : std::max(LastUsedWord(context.state), 0) + 1;
    const int bytes = whole ? device.eepromBytes : std::max(LastUsedByte(context.state), 0) + 1;
    CompareFlash(context, words, result);
    CompareEeprom(context, bytes, result);
    result.listingsUpdated =
        context.listings.WriteVerifyReport(Report(result.differences)) && Judge(context, result);
    return result;
}

}  // namespace tolvex
