// SPDX-License-Identifier: MIT
// Lock and fuse bits. Nothing is written but what was named, and what has to be written with it,
// which was read twice.
#include "cli/command.h"
#include "device/fuse_encoding.h"

namespace tolvex {

using namespace Qt::StringLiterals;

namespace {

constexpr int kLockFull = 0;  ///< the entry after which a chip can't be read
/// Of a choice: the list was not named. Of a reading: bits that no entry stands for.
constexpr int kNone = -1;

/// The lock list's entries have a word each that can be typed on any keyboard.
constexpr QStringView kLockWords[] = {u"full", u"write", u"none"};

/// The lists that the device has, in the order of the settings window.
QList<OptionRow> RowsOf(const CurrentDevice& device) {
    QList<OptionRow> rows;
    for (const OptionRow& row : OptionRows()) {
        if (HasOption(device.fuseGroup, row.list)) {
            rows << row;
        }
    }
    return rows;
}

/// The writer can read the bits back.
bool IsReadable(const CurrentDevice& device) {
    return device.fuseGroup != FuseGroup::LockOnly;
}

QString WordOf(const OptionRow& row, int entry) {
    if (entry < 0 || entry >= row.entries.size()) {
        return u"unknown"_s;
    }
    return row.list == OptionList::LockBit ? kLockWords[entry].toString() : row.entries[entry];
}

std::optional<int> FindEntry(const OptionRow& row, const QString& value) {
    for (int entry = 0; entry < row.entries.size(); ++entry) {
        for (const QString& name : {row.entries[entry], WordOf(row, entry)}) {
            if (name.compare(value, Qt::CaseInsensitive) == 0) {
                return entry;
            }
        }
    }
    return std::nullopt;
}

/// The values that each list takes, a line a list.
QString Offer(const CurrentDevice& device) {
    QStringList lines;
    for (const OptionRow& row : RowsOf(device)) {
        QStringList words;
        for (int entry = 0; entry < row.entries.size(); ++entry) {
            words << WordOf(row, entry);
        }
        lines << u"  %1 = %2"_s.arg(row.name, words.join(u" | "_s));
    }
    return lines.join(u'\n');
}

bool NamesFuses(const OptionChoice& choice) {
    OptionChoice none;
    none[OptionList::LockBit] = choice[OptionList::LockBit];
    return choice != none;
}

/// "CKSEL=1K CK" among the lists that the device has, into `choice`. A status.
int AddChoice(Session& session, const QString& text, OptionChoice& choice) {
    const QString name = text.section(u'=', 0, 0);
    for (const OptionRow& row : RowsOf(session.Device())) {
        if (row.name.compare(name, Qt::CaseInsensitive) != 0) {
            continue;
        }
        if (choice[row.list] != kNone) {
            return session.Fail(cause::WrongUse, u"二度指定されています: %1"_s.arg(name));
        }
        const auto entry = FindEntry(row, text.section(u'=', 1));
        if (entry && text.contains(u'=')) {
            choice[row.list] = *entry;
            return kDone;
        }
    }
    return session.Fail(cause::WrongUse, u"指定できません: %1\n指定できる値:\n%2"_s.arg(
                                             text, Offer(session.Device())));
}

/// A fresh reading of the chip, and nothing that was known before.
int ReadBits(Session& session, OptionChoice& reading) {
    OptionChoice& options = session.Bench().state.options;
    options[OptionList::LockBit] = kNone;
    const LockFuseResult result = session.ReadLockFuse();
    if (const int status = session.Judge(result.done && result.lockByte, cause::WriterSilent,
                                         u"Lock/Fuse ビットを読めません。"_s)) {
        return status;
    }
    if (const int status = session.RequirePart(false)) {
        return status;
    }
    reading = options;
    QJsonObject json;
    for (const OptionRow& row : RowsOf(session.Device())) {
        json[row.name] = WordOf(row, reading[row.list]);
    }
    session.Report()[u"options"_s] = json;
    return session.Judge(reading[OptionList::LockBit] != kLockFull, cause::Implausible,
                         u"シグネチャを読めるのに、ロックビットが full と読めました。"_s);
}

int ReadBitsTwice(Session& session, OptionChoice& reading) {
    OptionChoice again;
    return InOrder(
        [&] { return ReadBits(session, reading); }, [&] { return ReadBits(session, again); },
        [&] {
            return session.Judge(reading == again, cause::Unstable,
                                 u"二度読んだ Lock/Fuse ビットが違います。何も書いていません。"_s);
        });
}

void ShowByte(Session& session, const QString& name, std::optional<int> before, int after) {
    session.Tell(u"%1: %2 -> 0x%3"_s.arg(name, before ? u"0x"_s + HexByte(*before) : u"?"_s,
                                         HexByte(after)));
}

/// What `before`, where it could be read, becomes.
void ShowChange(Session& session, const std::optional<OptionChoice>& before,
                const OptionChoice& choice) {
    OptionChoice after = before.value_or(OptionChoice{});
    for (const OptionRow& row : RowsOf(session.Device())) {
        if (choice[row.list] != kNone) {
            const QString old = before ? WordOf(row, (*before)[row.list]) : u"?"_s;
            session.Tell(u"%1: %2 -> %3"_s.arg(row.name, old, WordOf(row, choice[row.list])));
            after[row.list] = choice[row.list];
        }
    }
    if (const int lock = choice[OptionList::LockBit]; lock != kNone) {
        const bool known = before && (*before)[OptionList::LockBit] != kNone;
        ShowByte(
            session, u"ロックバイト"_s,
            known ? std::optional<int>(EncodeLock((*before)[OptionList::LockBit])) : std::nullopt,
            EncodeLock(lock));
    }
    if (before && NamesFuses(choice)) {
        const FuseGroup group = session.Device().fuseGroup;
        ShowByte(session, u"ヒューズバイト"_s, EncodeFuses(group, *before),
                 *EncodeFuses(group, after));
    }
}

/// A locked chip silently ignores writes.
int Confirm(Session& session, const OptionChoice& wanted) {
    const QString text = u"チップが Lock/Fuse ビットを受け付けませんでした。"_s;
    if (wanted[OptionList::LockBit] == kLockFull) {
        if (const int status = session.DetectChip()) {
            return status;
        }
        const bool locked = session.Reading().verdict == ChipVerdict::Locked;
        session.Report()[u"options"_s] =
            locked ? QJsonObject{{u"LOCK"_s, u"full"_s}} : QJsonObject();
        return locked ? int{kDone} : session.Fail(cause::NotTaken, text);
    }
    if (!IsReadable(session.Device())) {
        session.Remark(u"このデバイスのロックビットは読み返せません。確認していません。"_s);
        session.Report()[u"confirmed"_s] = false;
        return kDone;
    }
    OptionChoice now;
    return InOrder([&] { return ReadBits(session, now); },
                   [&] { return session.Judge(now == wanted, cause::NotTaken, text); });
}

/// One of the two bytes, and the proof that the chip has taken it.
int WriteByte(Session& session, LockFusePart part, const OptionChoice& wanted) {
    session.Report()[u"confirmed"_s] = true;
    session.Bench().state.options = wanted;
    const bool written = session.WriteLockFuse(part).done;
    const int status =
        session.Judge(written, cause::CommandRefused, u"Lock/Fuse ビットを書けません。"_s);
    return status == kDone ? Confirm(session, wanted) : status;
}

/// The fuses go first: once the lock bits are set, the chip refuses fuses.
int WriteBits(Session& session, const OptionChoice& choice) {
    std::optional<OptionChoice> before;
    OptionChoice wanted;
    const bool readable = IsReadable(session.Device());
    const int found = readable ? ReadBitsTwice(session, wanted) : session.DetectPart(false);
    if (found != kDone) {
        return found;
    }
    if (readable) {
        before = wanted;
    }
    ShowChange(session, before, choice);
    if (NamesFuses(choice)) {
        for (const OptionRow& row : RowsOf(session.Device())) {
            if (row.list != OptionList::LockBit && choice[row.list] != kNone) {
                wanted[row.list] = choice[row.list];
            }
        }
        if (const int status = WriteByte(session, LockFusePart::Fuses, wanted)) {
            return status;
        }
    }
    if (choice[OptionList::LockBit] == kNone) {
        return kDone;
    }
    wanted[OptionList::LockBit] = choice[OptionList::LockBit];
    return WriteByte(session, LockFusePart::Lock, wanted);
}

}  // namespace

int Fuses(Session& session, const Call& call) {
    OptionChoice choice;
    for (const QString& text : call.arguments) {
        if (const int status = AddChoice(session, text, choice)) {
            return status;
        }
    }
    if (!IsReadable(session.Device())) {
        return session.Fail(
            cause::NotReadable,
            u"このデバイスにヒューズはなく、ロックビットは読めません。書くには lock を使います。"_s);
    }
    if (const int status = session.RequirePort()) {
        return status;
    }
    if (!call.arguments.isEmpty()) {
        return WriteBits(session, choice);
    }
    if (const int status = ReadBits(session, choice)) {
        return status;
    }
    for (const OptionRow& row : RowsOf(session.Device())) {
        session.Print(u"%1 = %2"_s.arg(row.name, WordOf(row, choice[row.list])));
    }
    return kDone;
}

int Lock(Session& session, const Call& call) {
    const OptionRow& row = OptionRows()[static_cast<std::size_t>(OptionList::LockBit)];
    const auto entry = FindEntry(row, call.arguments[0]);
    if (!entry) {
        return session.Fail(cause::WrongUse,
                            u"MODE は full、write、none のどれかです: %1"_s.arg(call.arguments[0]));
    }
    if (const int status = session.RequirePort()) {
        return status;
    }
    OptionChoice choice;
    choice[OptionList::LockBit] = *entry;
    return WriteBits(session, choice);
}

}  // namespace tolvex
