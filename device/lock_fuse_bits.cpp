// SPDX-License-Identifier: MIT
#include "device/lock_fuse_bits.h"

#include "device/fuse_encoding.h"

namespace tolvex {

using namespace Qt::StringLiterals;

LockFuseResult LockFuseBits::cmdFuseRead_Click() {
    LockFuseResult result;
    result.detection = detection_.WriterCheck();
    if (!result.detection) {
        return result;
    }
    person_.dialog.ShowMessage(MessageMode::Progress, u"Lock/Fuse bit リード中..."_s);
    flag_.Clear();
    result.chip = check_.CheckDevice();
    if (flag_.Failed()) {
        person_.dialog.ShowMessage(MessageMode::Message,
                                   u"設定デバイスと、ソケット上のデバイスがミスマッチです。"_s);
        return result;
    }
    flag_.Clear();
    if (device_.name.isEmpty()) {
        return result;
    }
    ReadLists(result);
    result.done = !flag_.Failed();
    Tell(result.done, u"Lock/Fuse bit リードが完了しました。"_s,
         u"Lock/Fuse bit リードに失敗しました。"_s);
    return result;
}

void LockFuseBits::ReadLists(LockFuseResult& result) {
    const FuseGroup group = device_.fuseGroup;
    switch (group) {
        case FuseGroup::LockOnly:
            break;
        case FuseGroup::FSTRT:
        case FuseGroup::RCEN:
            result.lockByte = ReadByte(&WriterCommands::ReadLockFuseBits, lockFuseByte_);
            DecodeFuses(group, lockFuseByte_, person_.panel);
            DecodeLock(group, lockFuseByte_, person_.panel);
            break;
        case FuseGroup::BOD_CKSEL:
            result.fuseByte = ReadByte(&WriterCommands::ReadFuseBits, fuseByte_);
            DecodeFuses(group, fuseByte_, person_.panel);
            result.lockByte = ReadByte(&WriterCommands::ReadLockFuseBits, lockByte_);
            DecodeLock(group, lockByte_, person_.panel);
            break;
    }
}

LockFuseResult LockFuseBits::cmdFuseWrite_Click() {
    return Write({.fuses = true, .lock = true});
}

LockFuseResult LockFuseBits::WriteLock() {
    return Write({.fuses = false, .lock = true});
}

LockFuseResult LockFuseBits::WriteFuses() {
    return Write({.fuses = true, .lock = false});
}

LockFuseResult LockFuseBits::Write(Bits bits) {
    LockFuseResult result;
    result.detection = detection_.WriterCheck();
    if (!result.detection) {
        return result;
    }
    person_.dialog.ShowMessage(MessageMode::Progress, u"Lock/Fuse bit ライト中...."_s);
    flag_.Clear();
    result.chip = check_.CheckDevice();
    if (flag_.Failed() || device_.name.isEmpty()) {
        return result;
    }
    WriteLists(bits);
    result.done = !flag_.Failed();
    Tell(result.done, u"Lock/Fuse bit ライトが完了しました。"_s,
         u"Lock/Fuse bit ライトに失敗しました。"_s);
    return result;
}

/// The fuses go first: once the lock bits are set, the chip refuses fuses.
void LockFuseBits::WriteLists(Bits bits) {
    const auto fuses = EncodeFuses(device_.fuseGroup, person_.panel);
    if (bits.fuses && fuses) {
        fuseByte_ = *fuses;
        WriteByte(&WriterCommands::WriteFuseBits, fuseByte_);
    }
    if (bits.lock) {
        lockByte_ = EncodeLock(person_.panel.SelectedOption(OptionList::LockBit));
        WriteByte(&WriterCommands::WriteLockBits, lockByte_);
    }
}

void LockFuseBits::Tell(bool done, const QString& success, const QString& failure) {
    person_.dialog.ShowMessage(MessageMode::Message, done ? success : failure);
}

std::optional<std::uint8_t> LockFuseBits::ReadByte(ReadCommand command, std::uint8_t& byte) {
    ErrorFlag own;
    writer_.EnterProgrammingMode(own);
    (writer_.*command)(byte, own);
    writer_.LeaveProgrammingMode(own);
    if (own.Failed()) {
        flag_.Set();
        return std::nullopt;
    }
    return byte;
}

void LockFuseBits::WriteByte(WriteCommand command, std::uint8_t byte) {
    writer_.EnterProgrammingMode(flag_);
    (writer_.*command)(byte, flag_);
    writer_.LeaveProgrammingMode(flag_);
}

}  // namespace tolvex
