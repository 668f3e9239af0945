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

void DeviceCheck::CheckDevice() {
    context_.writer.EnterProgrammingMode(context_.errorFlag);
    context_.waiting.WaitSeconds(1);
    CheckSignature();
    context_.writer.LeaveProgrammingMode(context_.errorFlag);
}

void DeviceCheck::CheckSignature() {
    context_.status.SetStatusText(kSignaturePanel, u"--:--:--"_s);
    detectedFlashWords_ = kFlashWordsOfUnknown;
    verdict_ = ChipVerdict::NoReply;
    signature_ = {};
    if (ReadKnownSignature()) {
        Judge(signature_[1]);
    }
}

/// Asks again while the size code is unknown, since a chip that has just entered programming mode
/// may need a moment. False after a time-out, which the command has reported.
bool DeviceCheck::ReadKnownSignature() {
    for (int attempt = 0; attempt < kAttempts; ++attempt) {
        if (!context_.writer.ReadSignature(signature_, context_.errorFlag)) {
            return false;
        }
        context_.status.SetStatusText(
            kSignaturePanel,
            HexByte(signature_[2]) + u':' + HexByte(signature_[1]) + u':' + HexByte(signature_[0]));
        const int words = FlashWordsOfSizeCode(signature_[1]);
        if (words != 0) {
            detectedFlashWords_ = words;
            break;
        }
    }
    return true;
}

void DeviceCheck::Judge(std::uint8_t sizeCode) {
    if (sizeCode <= kHighestProtectedCode) {
        verdict_ = ChipVerdict::Protected;
        context_.panel.SelectOption(OptionList::LockBit, kLockEntryUnprotected);
        Reject(
            u"デバイスがプロテクトされています。\r\n"
            "チップイレース(<消 Erase>ボタン)を実行してください。"_s);
    } else if (sizeCode == kEmptySocketCode) {
        verdict_ = ChipVerdict::EmptySocket;
        Reject(u"デバイスが、ソケットにセットされていません。"_s);
    } else if (detectedFlashWords_ != context_.device.flashWords) {
        verdict_ = ChipVerdict::Mismatch;
        Reject(
            u"デバイス選択と、ソケット上のデバイスが一致しません。\r\n"
            "購入直後のデバイスを使用する場合は、チップイレース(<消 Erase>ボタン)を実行してください。"_s);
    } else {
        verdict_ = ChipVerdict::Accepted;
    }
}

void DeviceCheck::Reject(const QString& message) {
    context_.dialog.ShowMessage(MessageMode::Message, message);
    if (!tolerant_ || verdict_ != ChipVerdict::Mismatch) {
        context_.errorFlag.Set();
    }
}

}  // namespace tolvex
