// SPDX-License-Identifier: MIT
#include "device/verify_operation.h"

#include <algorithm>

#include "device/used_extent.h"

namespace tolvex {

using namespace Qt::StringLiterals;

namespace {

void AddLine(QByteArray& report, const QString& line = {}) {
    report += line.toLatin1() + "\r\n";
}

QString FlashLine(int word, int image, int chip) {
    return u"Flash  Address(word) = "_s + HexWord4(word) + u"  Original Data = "_s +
           HexWord4(image) + u"   NG Data = "_s + HexWord4(chip);
}

QString EepromLine(int address, int image, int chip) {
    return u"EEPROM Address(byte) = "_s + HexWord4(address) + u"  Original Data = "_s +
           HexByte(image) + u"   NG Data = "_s + HexByte(chip);
}

/// How many cells to compare after programming: up to the last used one, at least one.
int CountThrough(int lastUsed) {
    return std::max(lastUsed, 0) + 1;
}

}  // namespace

VerifyResult VerifyOperation::VerifyChip(VerifyMode mode) {
    VerifyResult result;
    const bool whole = mode == VerifyMode::WholeChip;
    person_.dialog.SetProgress(true, 0, 0, device_.flashWords - 1);
    person_.dialog.ShowMessage(MessageMode::Progress, u"Flash Program Memory Verifying !"_s);
    flag_.Clear();
    if (whole) {
        result.chip = check_.CheckDevice();
        if (flag_.Failed()) {
            person_.status.SetStatusText(kMessagePanel, u"ベリファイを中止しました。"_s);
            return result;
        }
    }
    CompareFlash(
        whole ? device_.flashWords : CountThrough(LastUsedWord(images_.flash, device_.flashWords)),
        result);
    CompareEeprom(whole ? device_.eepromBytes
                        : CountThrough(LastUsedByte(images_.eeprom, device_.eepromBytes)),
                  result);
    result.listed = listings_.WriteVerifyReport(result.report);
    if (result.listed) {
        Judge(result);
    }
    return result;
}

void VerifyOperation::CompareFlash(int words, VerifyResult& result) {
    flag_.Clear();
    writer_.EnterProgrammingMode(flag_);
    writer_.SetAddress(0, flag_);
    AddLine(result.report, u"Flash Program memory address verify"_s);
    AddLine(result.report);
    // A failed read leaves these alone: the comparison then goes by the last successful one.
    std::uint8_t high = 0;
    std::uint8_t low = 0;
    for (int word = 0; word < words; ++word) {
        const auto cell = 2 * static_cast<std::size_t>(word);
        const int image = images_.flash[cell] * 256 + images_.flash[cell + 1];
        person_.dialog.SetProgress(true, 0, word, words - 1);
        writer_.ReadProgramWord(high, low, flag_);
        const int chip = high * 256 + low;
        if (chip != image) {
            AddLine(result.report, FlashLine(word, image, chip));
            result.differences << VerifyResult::Difference{true, word, image, chip};
            result.flashDiffers = true;
        }
    }
    writer_.LeaveProgrammingMode(flag_);
    result.flashCompared = !flag_.Failed();
    if (!result.flashCompared) {
        Report(u"Flash メモリ ベリファイ失敗"_s);
    }
}

void VerifyOperation::CompareEeprom(int bytes, VerifyResult& result) {
    person_.dialog.ShowMessage(MessageMode::Progress, u"EEPROM Data Memory Verifying !"_s);
    flag_.Clear();
    writer_.EnterProgrammingMode(flag_);
    AddLine(result.report);
    AddLine(result.report, u"EEPROM data memory address verify"_s);
    AddLine(result.report);
    std::uint8_t chip = 0;
    for (int address = 0; address < bytes; ++address) {
        const std::uint8_t image = images_.eeprom[static_cast<std::size_t>(address)];
        person_.dialog.SetProgress(true, 0, address, bytes - 1);
        writer_.SetAddress(address, flag_);
        writer_.ReadDataByte(chip, flag_);
        if (chip != image) {
            AddLine(result.report, EepromLine(address, image, chip));
            result.differences << VerifyResult::Difference{false, address, image, chip};
            result.eepromDiffers = true;
        }
    }
    writer_.LeaveProgrammingMode(flag_);
    result.eepromCompared = !flag_.Failed();
}

/// A Flash command that failed has been told by its phase; the summary goes by what was compared.
void VerifyOperation::Judge(VerifyResult& result) {
    if (!result.eepromCompared) {
        Report(u"ベリファイ　通信エラー"_s);
        return;
    }
    const bool differs = result.flashDiffers || result.eepromDiffers;
    result.listed = !differs || listings_.ShowVerifyReport();
    if (!result.listed) {
        return;
    }
    const QString flash = result.flashDiffers ? u"NG"_s : u"OK"_s;
    const QString eeprom = result.eepromDiffers ? u"NG"_s : u"OK"_s;
    Report(u"ベリファイ　FLASH : %1 / EEPROM : %2"_s.arg(flash, eeprom));
}

}  // namespace tolvex
