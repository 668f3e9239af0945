// SPDX-License-Identifier: MIT
#include "cli/fuse_session.h"

#include "device/fuse_encoding.h"

namespace tolvex {

using namespace Qt::StringLiterals;

namespace {

constexpr int kLockFull = 0;  ///< the entry after which a chip can't be read

}  // namespace

int FuseSession::Read() {
    if (const int status = session_.RequirePort()) {
        return status;
    }
    const bool read = session_.RunFuses(&LockFuseBits::cmdFuseRead_Click).done;
    return session_.Judge(read, "fuseReadFailed", u"Lock/Fuse ビットを読めません。"_s);
}

int FuseSession::Write(const QList<FuseChoice>& choices) {
    const int before = session_.Lists().Readable() ? Read() : session_.RequirePort();
    if (before != kDone || session_.Port().Stopped()) {
        return before;
    }
    ShowChange(choices);
    const bool written = session_.RunFuses(&LockFuseBits::cmdFuseWrite_Click).done;
    session_.Report()[u"options"_s] = SelectionJson(session_.Lists());
    const int status =
        session_.Judge(written, "fuseWriteFailed", u"Lock/Fuse ビットを書けません。"_s);
    return status == kDone && !session_.Port().Stopped() ? Confirm() : status;
}

/// A protected chip takes every write without a murmur.
int FuseSession::Confirm() {
    OptionLists& lists = session_.Lists();
    if (!lists.Readable() || lists.SelectedOption(OptionList::LockBit) == kLockFull) {
        return kDone;
    }
    const QJsonObject wanted = SelectionJson(lists);
    const int status = Read();
    if (status != kDone || session_.Port().Stopped()) {
        return status;
    }
    session_.Report()[u"options"_s] = SelectionJson(lists);
    return session_.Judge(SelectionJson(lists) == wanted, "fusesNotTaken",
                          u"チップが Lock/Fuse ビットを受け付けませんでした。"_s);
}

void FuseSession::ShowChange(const QList<FuseChoice>& choices) {
    OptionLists& lists = session_.Lists();
    const FuseGroup group = session_.Bench().state.device.fuseGroup;
    const auto fusesBefore = EncodeFuses(group, lists);
    const int lockBefore = EncodeLock(lists.SelectedOption(OptionList::LockBit));
    for (const FuseChoice& choice : choices) {
        const QString before =
            lists.Readable() ? lists.Entries(choice.list).value(lists.SelectedOption(choice.list))
                             : u"?"_s;
        lists.SelectOption(choice.list, choice.entry);
        session_.Tell(u"%1: %2 -> %3"_s.arg(FuseName(choice.list), before,
                                            lists.Entries(choice.list).value(choice.entry)));
    }
    if (const auto fuses = EncodeFuses(group, lists)) {
        ShowByte(u"ヒューズバイト"_s, "fuseByte", *fusesBefore, *fuses);
    }
    ShowByte(u"ロックバイト"_s, "lockByte", lists.Readable() ? lockBefore : -1,
             EncodeLock(lists.SelectedOption(OptionList::LockBit)));
}

void FuseSession::ShowByte(const QString& name, const char* key, int before, int after) {
    const QString old = before < 0 ? u"?"_s : u"0x"_s + HexByte(before);
    session_.Tell(u"%1: %2 -> 0x%3"_s.arg(name, old, HexByte(after)));
    session_.Report()[QString::fromLatin1(key)] = after;
}

}  // namespace tolvex
