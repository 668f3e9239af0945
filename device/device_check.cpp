// SPDX-License-Identifier: MIT
#include "base/text.h"
#include "device/device.h"

namespace tolvex {

using namespace Qt::StringLiterals;

namespace {

constexpr int kAttempts = 5;
/// What a chip counts as whose size code is unknown.
constexpr int kFlashWordsOfUnknown = 512;
constexpr std::uint8_t kHighestLockedCode = 0x02;
constexpr std::uint8_t kEmptySocketCode = 0xFF;
constexpr int kLockEntryUnlocked = 2;

/// The chip's Flash size. Asks again while the size code is unknown, since a chip that has just
/// entered programming mode may need a moment. Nothing after a time-out, which the command has
/// reported.
std::optional<int> ReadFlashWords(const ChipContext& context, Signature& signature) {
    for (int attempt = 0; attempt < kAttempts; ++attempt) {
        if (context.commands.ReadSignature(signature) != Outcome::Ok) {
            return std::nullopt;
        }
        context.ui.SetStatusText(
            kSignaturePanel,
            HexByte(signature[2]) + u':' + HexByte(signature[1]) + u':' + HexByte(signature[0]));
        if (const int words = FlashWordsOfSizeCode(signature[1]); words != 0) {
            return words;
        }
    }
    return kFlashWordsOfUnknown;
}

ChipVerdict Reject(const ChipContext& context, ChipVerdict verdict, const QString& message) {
    context.state.errorFlag.Set();
    context.ui.ShowMessage(MessageKind::Failure, message);
    return verdict;
}

/// Tells of the answer, and sets the error flag unless the proven chip gave it.
bool Prove(const ChipContext& context, const Signature& signature, bool mayBeLocked) {
    const Signature& proven = *context.provenSignature;
    const bool unlocked =
        proven == kLockedSignature && (signature == context.state.device.signature ||
                                       (context.tolerateMismatch && PartOf(signature)));
    const bool same =
        signature == proven || unlocked || (mayBeLocked && signature == kLockedSignature);
    if (!same) {
        context.state.errorFlag.Set();
    }
    if (context.onProof) {
        context.onProof(signature, same);
    }
    return same;
}

ChipVerdict Judge(const ChipContext& context, const Signature& signature, int flashWords) {
    const std::uint8_t sizeCode = signature[1];
    if (context.provenSignature && !Prove(context, signature, false)) {
        return Reject(context, ChipVerdict::ContactLost,
                      Text::tr("チップとの接触が失われました。"));
    }
    if (sizeCode <= kHighestLockedCode) {
        context.state.options[OptionList::LockBit] = kLockEntryUnlocked;
        context.ui.ShowSettings();
        return Reject(context, ChipVerdict::Locked,
                      Text::tr("デバイスがプロテクトされています。\r\n"
                               "チップイレース(<消 Erase>ボタン)を実行してください。"));
    }
    if (sizeCode == kEmptySocketCode) {
        return Reject(context, ChipVerdict::EmptySocket,
                      Text::tr("デバイスが、ソケットにセットされていません。"));
    }
    if (context.provenSignature ? signature == context.state.device.signature
                                : flashWords == context.state.device.flashWords) {
        return ChipVerdict::Accepted;
    }
    const QString mismatch = Text::tr(
        "デバイス選択と、ソケット上のデバイスが一致しません。\r\n"
        "購入直後のデバイスを使用する場合は、チップイレース(<消 Erase>ボタン)を実行してください。");
    if (context.tolerateMismatch) {
        context.ui.ShowMessage(MessageKind::Result, mismatch);
        return ChipVerdict::Tolerated;
    }
    return Reject(context, ChipVerdict::Mismatch, mismatch);
}

}  // namespace

bool IsStillProven(const ChipContext& context, bool mayBeLocked) {
    Signature signature{};
    return !context.provenSignature || (context.commands.ReadSignature(signature) == Outcome::Ok &&
                                        Prove(context, signature, mayBeLocked));
}

bool LeaveWithProof(const ChipContext& context, bool mayBeLocked) {
    const bool proven = IsStillProven(context, mayBeLocked);
    return context.commands.LeaveProgrammingMode() == Outcome::Ok && proven;
}

ChipReading CheckSignature(const ChipContext& context) {
    ChipReading reading;
    context.ui.SetStatusText(kSignaturePanel, u"--:--:--"_s);
    if (const auto flashWords = ReadFlashWords(context, reading.signature)) {
        reading.verdict = Judge(context, reading.signature, *flashWords);
    }
    return reading;
}

ChipReading CheckDevice(const ChipContext& context) {
    const Outcome entered = context.commands.EnterProgrammingMode();
    context.connection.WaitSeconds(1);
    ChipReading reading = CheckSignature(context);
    const Outcome left = context.commands.LeaveProgrammingMode();
    if (reading.Passed() && (entered != Outcome::Ok || left != Outcome::Ok)) {
        reading.verdict = ChipVerdict::CommandFailed;
    }
    return reading;
}

}  // namespace tolvex
