// SPDX-License-Identifier: MIT
// The two buttons of the lock and fuse area.
#include "base/text.h"
#include "device/device.h"
#include "device/fuse_encoding.h"

namespace tolvex {

using namespace Qt::StringLiterals;

namespace {

using ReadCommand = Outcome (WriterCommands::*)(std::uint8_t&);
using WriteCommand = Outcome (WriterCommands::*)(std::uint8_t);

/// One command between entering and leaving programming mode. What the chip gave, when all three
/// succeeded.
std::optional<std::uint8_t> ReadByte(const ChipContext& context, ReadCommand command,
                                     std::uint8_t& byte) {
    const bool entered = context.commands.EnterProgrammingMode() == Outcome::Ok;
    const bool read = (context.commands.*command)(byte) == Outcome::Ok;
    const bool left = LeaveWithProof(context);
    return entered && read && left ? std::optional(byte) : std::nullopt;
}

void WriteByte(const ChipContext& context, WriteCommand command, std::uint8_t byte,
               bool locks = false) {
    context.commands.EnterProgrammingMode();
    if (IsStillProven(context)) {
        (context.commands.*command)(byte);
    }
    LeaveWithProof(context, locks);
}

void ReadOptions(const ChipContext& context, LockFuseResult& result) {
    const FuseGroup group = context.state.device.fuseGroup;
    OptionChoice& options = context.state.options;
    ProgramState& state = context.state;
    switch (group) {
        case FuseGroup::LockOnly:
            break;
        case FuseGroup::FSTRT:
        case FuseGroup::RCEN:
            result.lockByte =
                ReadByte(context, &WriterCommands::ReadLockFuseBits, state.lockFuseByte);
            DecodeFuses(group, state.lockFuseByte, options);
            DecodeLock(group, state.lockFuseByte, options);
            break;
        case FuseGroup::BOD_CKSEL:
            result.fuseByte = ReadByte(context, &WriterCommands::ReadFuseBits, state.fuseByte);
            DecodeFuses(group, state.fuseByte, options);
            context.ui.ShowSettings();
            result.lockByte = ReadByte(context, &WriterCommands::ReadLockFuseBits, state.lockByte);
            DecodeLock(group, state.lockByte, options);
            break;
    }
    context.ui.ShowSettings();
}

/// The fuses go first: once the lock bits are set, the chip refuses fuses.
void WriteOptions(const ChipContext& context, LockFusePart part) {
    const OptionChoice& options = context.state.options;
    ProgramState& state = context.state;
    const auto fuses = EncodeFuses(context.state.device.fuseGroup, options);
    if (part != LockFusePart::Lock && fuses) {
        state.fuseByte = *fuses;
        WriteByte(context, &WriterCommands::WriteFuseBits, state.fuseByte);
    }
    if (part != LockFusePart::Fuses) {
        state.lockByte = EncodeLock(options[OptionList::LockBit]);
        // Its first entry keeps the chip from being read.
        WriteByte(context, &WriterCommands::WriteLockBits, state.lockByte,
                  options[OptionList::LockBit] == 0);
    }
}

/// Whether it succeeded.
bool TellEnd(const ChipContext& context, const QString& success, const QString& failure) {
    const bool done = !context.state.errorFlag.Failed();
    context.ui.ShowMessage(done ? MessageKind::Result : MessageKind::Failure,
                           done ? success : failure);
    return done;
}

}  // namespace

LockFuseResult cmdFuseRead_Click(const ChipContext& context) {
    LockFuseResult result;
    result.detection = WriterCheck(context);
    if (!result.detection) {
        return result;
    }
    context.ui.ShowMessage(MessageKind::Progress, Text::tr("Lock/Fuse bit リード中..."));
    context.state.errorFlag.Clear();
    result.chip = CheckDevice(context);
    if (!result.chip.Passed()) {
        context.ui.ShowMessage(MessageKind::Failure,
                               Text::tr("設定デバイスと、ソケット上のデバイスがミスマッチです。"));
        return result;
    }
    context.state.errorFlag.Clear();
    if (context.state.device.name.isEmpty()) {
        return result;
    }
    ReadOptions(context, result);
    result.done = TellEnd(context, Text::tr("Lock/Fuse bit リードが完了しました。"),
                          Text::tr("Lock/Fuse bit リードに失敗しました。"));
    return result;
}

LockFuseResult cmdFuseWrite_Click(const ChipContext& context) {
    return WriteLockFuse(context, LockFusePart::Both);
}

LockFuseResult WriteLockFuse(const ChipContext& context, LockFusePart part) {
    LockFuseResult result;
    result.detection = WriterCheck(context);
    if (!result.detection) {
        return result;
    }
    context.ui.ShowMessage(MessageKind::Progress, Text::tr("Lock/Fuse bit ライト中...."));
    context.state.errorFlag.Clear();
    result.chip = CheckDevice(context);
    if (!result.chip.Passed() || context.state.device.name.isEmpty()) {
        return result;
    }
    WriteOptions(context, part);
    result.done = TellEnd(context, Text::tr("Lock/Fuse bit ライトが完了しました。"),
                          Text::tr("Lock/Fuse bit ライトに失敗しました。"));
    return result;
}

}  // namespace tolvex
