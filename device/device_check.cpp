// SPDX-License-Identifier: MIT
#include "device/device_check.h"

#include "device/catalogue.h"

namespace tolvex {

using namespace Qt::StringLiterals;

namespace {

constexpr int kAttempts = 5;
constexpr int kFlashWordsOfUnknown = 512;
constexpr std::uint8_t kHighestProtectedCode = 0x02;
constexpr std::uint8_t kEmptySocketCode = 0xFF;
constexpr int kLockEntryUnprotected = 2;

}  // namespace

ChipReading DeviceCheck::CheckDevice() {
    writer_.EnterProgrammingMode(flag_);
    waiting_.WaitSeconds(1);
    ChipReading reading = CheckSignature();
    writer_.LeaveProgrammingMode(flag_);
    reading.passed = !flag_.Failed();
    return reading;
}

ChipReading DeviceCheck::CheckSignature() {
    ChipReading reading;
    person_.status.SetStatusText(kSignaturePanel, u"--:--:--"_s);
    const int flashWords = ReadSignature(reading);
    if (flashWords != 0) {
        reading.verdict = Judge(reading.signature[1], flashWords);
    }
    reading.passed = !flag_.Failed();
    return reading;
}

/// Asks again while the size code is unknown, since a chip that has just entered programming mode
/// may need a moment. After a time-out, which the command has reported, nothing is judged.
int DeviceCheck::ReadSignature(ChipReading& reading) {
    auto& signature = reading.signature;
    for (int attempt = 0; attempt < kAttempts; ++attempt) {
        if (!writer_.ReadSignature(signature, flag_)) {
            return 0;
        }
        person_.status.SetStatusText(
            kSignaturePanel,
            HexByte(signature[2]) + u':' + HexByte(signature[1]) + u':' + HexByte(signature[0]));
        if (const int words = FlashWordsOfSizeCode(signature[1]); words != 0) {
            return words;
        }
    }
    return kFlashWordsOfUnknown;
}

ChipVerdict DeviceCheck::Judge(std::uint8_t sizeCode, int flashWords) {
    if (sizeCode <= kHighestProtectedCode) {
        person_.panel.SelectOption(OptionList::LockBit, kLockEntryUnprotected);
        return Reject(ChipVerdict::Protected,
                      u"デバイスがプロテクトされています。\r\n"
                      "チップイレース(<消 Erase>ボタン)を実行してください。"_s);
    }
    if (sizeCode == kEmptySocketCode) {
        return Reject(ChipVerdict::EmptySocket, u"デバイスが、ソケットにセットされていません。"_s);
    }
    if (flashWords != device_.flashWords) {
        return Reject(
            ChipVerdict::Mismatch,
            u"デバイス選択と、ソケット上のデバイスが一致しません。\r\n"
            "購入直後のデバイスを使用する場合は、チップイレース(<消 Erase>ボタン)を実行してください。"_s);
    }
    return ChipVerdict::Accepted;
}

ChipVerdict DeviceCheck::Reject(ChipVerdict verdict, const QString& message) {
    if (!tolerant_ || verdict != ChipVerdict::Mismatch) {
        flag_.Set();
    }
    person_.dialog.ShowMessage(MessageMode::Message, message);
    return verdict;
}

}  // namespace tolvex
