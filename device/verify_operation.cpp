// SPDX-License-Identifier: MIT
#include "device/verify_operation.h"

#include <algorithm>

#include "device/used_extent.h"

namespace tolvex {

using namespace Qt::StringLiterals;

namespace {

void WriteLine(QFile& report, const QString& line = {}) {
    report.write(line.toLatin1() + "\r\n");
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

bool VerifyOperation::VerifyChip(VerifyMode mode) {
    findings_ = {};
    context_.dialog.SetProgress(true, 0, 0, context_.device.flashWords - 1);
    context_.dialog.ShowMessage(MessageMode::Progress, u"Flash Program Memory Verifying !"_s);
    context_.errorFlag.Clear();
    if (mode == VerifyMode::WholeChip) {
        check_.CheckDevice();
        if (context_.errorFlag.Failed()) {
            context_.status.SetStatusText(kMessagePanel, u"ベリファイを中止しました。"_s);
            return true;
        }
    }
    return CompareMemories(mode) && Judge();
}

bool VerifyOperation::CompareMemories(VerifyMode mode) {
    const CurrentDevice& device = context_.device;
    const bool whole = mode == VerifyMode::WholeChip;
    ErrorFlag& flag = context_.errorFlag;

    flag.Clear();
    context_.writer.EnterProgrammingMode(flag);
    context_.writer.SetAddress(0, flag);
    QFile report(context_.listings.ReportPath());
    if (report.fileName().isEmpty() || !report.open(QIODevice::WriteOnly | QIODevice::Truncate)) {
        return false;
    }
    WriteLine(report, u"Flash Program memory address verify"_s);
    WriteLine(report);
    findings_.flashDiffers =
        CompareFlash(whole ? device.flashWords
                           : CountThrough(LastUsedWord(context_.images.flash, device.flashWords)),
                     report);
    context_.writer.LeaveProgrammingMode(flag);
    findings_.flashFailed = flag.Failed();
    if (findings_.flashFailed) {
        context_.Report(u"Flash メモリ ベリファイ失敗"_s);
    }

    context_.dialog.ShowMessage(MessageMode::Progress, u"EEPROM Data Memory Verifying !"_s);
    flag.Clear();
    context_.writer.EnterProgrammingMode(flag);
    WriteLine(report);
    WriteLine(report, u"EEPROM data memory address verify"_s);
    WriteLine(report);
    findings_.eepromDiffers = CompareEeprom(
        whole ? device.eepromBytes
              : CountThrough(LastUsedByte(context_.images.eeprom, device.eepromBytes)),
        report);
    report.close();
    context_.writer.LeaveProgrammingMode(flag);
    findings_.eepromFailed = flag.Failed();
    findings_.compared = true;
    return true;
}

bool VerifyOperation::CompareFlash(int words, QFile& report) {
    bool differs = false;
    // A failed read leaves these alone: the comparison then goes by the last successful one.
    std::uint8_t high = 0;
    std::uint8_t low = 0;
    for (int word = 0; word < words; ++word) {
        const auto cell = static_cast<std::size_t>(2 * word);
        const std::uint8_t imageHigh = context_.images.flash[cell];
        const std::uint8_t imageLow = context_.images.flash[cell + 1];
        context_.dialog.SetProgress(true, 0, word, words - 1);
        context_.writer.ReadProgramWord(high, low, context_.errorFlag);
        if (high != imageHigh || low != imageLow) {
            const Difference found{true, word, imageHigh * 256 + imageLow, high * 256 + low};
            WriteLine(report, FlashLine(word, found.image, found.chip));
            findings_.differences << found;
            differs = true;
        }
    }
    return differs;
}

bool VerifyOperation::CompareEeprom(int bytes, QFile& report) {
    bool differs = false;
    std::uint8_t data = 0;
    for (int address = 0; address < bytes; ++address) {
        const std::uint8_t image = context_.images.eeprom[static_cast<std::size_t>(address)];
        context_.dialog.SetProgress(true, 0, address, bytes - 1);
        context_.writer.SetAddress(address, context_.errorFlag);
        context_.writer.ReadDataByte(data, context_.errorFlag);
        if (data != image) {
            WriteLine(report, EepromLine(address, image, data));
            findings_.differences << Difference{false, address, image, data};
            differs = true;
        }
    }
    return differs;
}

bool VerifyOperation::Judge() {
    if (findings_.eepromFailed) {
        context_.Report(u"ベリファイ　通信エラー"_s);
        return true;
    }
    const bool differs = findings_.flashDiffers || findings_.eepromDiffers;
    if (differs && !context_.listings.ShowVerifyReport()) {
        return false;
    }
    const QString flash = findings_.flashDiffers ? u"NG"_s : u"OK"_s;
    const QString eeprom = findings_.eepromDiffers ? u"NG"_s : u"OK"_s;
    context_.Report(u"ベリファイ　FLASH : %1 / EEPROM : %2"_s.arg(flash, eeprom));
    return true;
}

}  // namespace tolvex
