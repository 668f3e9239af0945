// SPDX-License-Identifier: MIT
#include "device/lock_fuse_bits.h"

#include "device/fuse_encoding.h"

namespace tolvex {

using namespace Qt::StringLiterals;

void LockFuseBits::cmdFuseRead_Click() {
    if (!detection_.WriterCheck()) {
        return;
    }
    context_.dialog.ShowMessage(MessageMode::Progress, u"Lock/Fuse bit リード中..."_s);
    context_.errorFlag.Clear();
    check_.CheckDevice();
    if (context_.errorFlag.Failed()) {
        context_.dialog.ShowMessage(MessageMode::Message,
                                    u"設定デバイスと、ソケット上のデバイスがミスマッチです。"_s);
        return;
    }
    context_.errorFlag.Clear();
    if (context_.device.name.isEmpty()) {
        return;
    }
    ReadLists();
    context_.dialog.ShowMessage(MessageMode::Message,
                                context_.errorFlag.Failed()
                                    ? u"Lock/Fuse bit リードに失敗しました。"_s
                                    : u"Lock/Fuse bit リードが完了しました。"_s);
}

void LockFuseBits::ReadLists() {
    const FuseGroup group = context_.device.fuseGroup;
    switch (group) {
        case FuseGroup::LockOnly:
            break;
        case FuseGroup::FSTRT:
        case FuseGroup::RCEN:
            ReadByte(&WriterCommands::ReadLockFuseBits, lockFuseByte_);
            DecodeFuses(group, lockFuseByte_, context_.panel);
            DecodeLock(group, lockFuseByte_, context_.panel);
            break;
        case FuseGroup::BOD_CKSEL:
            ReadByte(&WriterCommands::ReadFuseBits, fuseByte_);
            DecodeFuses(group, fuseByte_, context_.panel);
            ReadByte(&WriterCommands::ReadLockFuseBits, lockByte_);
            DecodeLock(group, lockByte_, context_.panel);
            break;
    }
}

void LockFuseBits::cmdFuseWrite_Click() {
    if (!detection_.WriterCheck()) {
        return;
    }
    context_.dialog.ShowMessage(MessageMode::Progress, u"Lock/Fuse bit ライト中...."_s);
    context_.errorFlag.Clear();
    check_.CheckDevice();
    if (context_.errorFlag.Failed() || context_.device.name.isEmpty()) {
        return;
    }
    WriteLists();
    context_.dialog.ShowMessage(MessageMode::Message,
                                context_.errorFlag.Failed()
                                    ? u"Lock/Fuse bit ライトに失敗しました。"_s
                                    : u"Lock/Fuse bit ライトが完了しました。"_s);
}

/// The fuses go first: once the lock bits are set, the chip refuses fuses.
void LockFuseBits::WriteLists() {
    if (const auto fuses = EncodeFuses(context_.device.fuseGroup, context_.panel)) {
        fuseByte_ = *fuses;
        WriteByte(&WriterCommands::WriteFuseBits, fuseByte_);
    }
    lockByte_ = EncodeLock(context_.panel.SelectedOption(OptionList::LockBit));
    WriteByte(&WriterCommands::WriteLockBits, lockByte_);
}

void LockFuseBits::ReadByte(ReadCommand command, std::uint8_t& byte) {
    context_.writer.EnterProgrammingMode(context_.errorFlag);
    (context_.writer.*command)(byte, context_.errorFlag);
    context_.writer.LeaveProgrammingMode(context_.errorFlag);
}

void LockFuseBits::WriteByte(WriteCommand command, std::uint8_t byte) {
    context_.writer.EnterProgrammingMode(context_.errorFlag);
    (context_.writer.*command)(byte, context_.errorFlag);
    context_.writer.LeaveProgrammingMode(context_.errorFlag);
}

}  // namespace tolvex
