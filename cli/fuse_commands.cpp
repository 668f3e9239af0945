// SPDX-License-Identifier: MIT
// Lock and fuse bits. Nothing is written but what was named, and what has to be written with it,
// which was read twice.
#include "base/text.h"
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

/// What is chosen of the fuses.
OptionChoice FusesOf(OptionChoice choice) {
    choice[OptionList::LockBit] = kNone;
    return choice;
}

bool NamesFuses(const OptionChoice& choice) {
    return FusesOf(choice) != OptionChoice{};
}

/// `before` with the named options in place of its own.
OptionChoice Applied(const OptionChoice& choice, const OptionChoice& before) {
    OptionChoice after = before;
    for (const OptionList list : kOptionLists) {
        if (choice[list] != kNone) {
            after[list] = choice[list];
        }
    }
    return after;
}

/// "CKSEL=1K CK" among the lists that the device has, into `choice`.
Status AddChoice(const CurrentDevice& device, const QString& text, OptionChoice& choice) {
    const QString name = text.section(u'=', 0, 0);
    for (const OptionRow& row : RowsOf(device)) {
        if (row.name.compare(name, Qt::CaseInsensitive) != 0) {
            continue;
        }
        if (choice[row.list] != kNone) {
            return Failure{cause::WrongUse, Text::tr("二度指定されています: %1").arg(name)};
        }
        const auto entry = FindEntry(row, text.section(u'=', 1));
        if (entry && text.contains(u'=')) {
            choice[row.list] = *entry;
            return {};
        }
    }
    return Failure{cause::WrongUse,
                   Text::tr("指定できません: %1\n指定できる値:\n%2").arg(text, Offer(device))};
}

/// A fresh reading of the chip, and nothing that was known before.
Result<OptionChoice> ReadBits(Session& session) {
    ChipAccess& access = session.access;
    OptionChoice& options = session.bench.state.options;
    options[OptionList::LockBit] = kNone;
    const LockFuseResult result = access.ReadLockFuse();
    if (const Status failed =
            access.Judge(result.done && result.lockByte,
                         {cause::WriterSilent, Text::tr("Lock/Fuse ビットを読めません。")})) {
        return *failed;
    }
    QJsonObject json;
    for (const OptionRow& row : RowsOf(access.Device())) {
        json[row.name] = WordOf(row, options[row.list]);
    }
    session.output.Report(report::Options, json);
    if (options[OptionList::LockBit] == kLockFull) {
        return Failure{cause::Implausible,
                       Text::tr("シグネチャを読めるのに、ロックビットが full と読めました。")};
    }
    return options;
}

Result<OptionChoice> ReadBitsTwice(Session& session) {
    const auto first = ReadBits(session);
    const auto again = first ? ReadBits(session) : first;
    if (again && *first != *again) {
        return Failure{cause::Unstable,
                       Text::tr("二度読んだ Lock/Fuse ビットが違います。何も書いていません。")};
    }
    return again;
}

void ShowByte(Session& session, const QString& name, std::optional<int> before, int after) {
    session.output.Tell(u"%1: %2 -> 0x%3"_s.arg(name, before ? u"0x"_s + HexByte(*before) : u"?"_s,
                                                HexByte(after)));
}

/// What `before`, where it could be read, becomes.
void ShowChange(Session& session, const std::optional<OptionChoice>& before,
                const OptionChoice& choice) {
    for (const OptionRow& row : RowsOf(session.access.Device())) {
        if (choice[row.list] != kNone) {
            const QString old = before ? WordOf(row, (*before)[row.list]) : u"?"_s;
            session.output.Tell(
                u"%1: %2 -> %3"_s.arg(row.name, old, WordOf(row, choice[row.list])));
        }
    }
    if (const int lock = choice[OptionList::LockBit]; lock != kNone) {
        const bool known = before && (*before)[OptionList::LockBit] != kNone;
        ShowByte(
            session, Text::tr("ロックバイト"),
            known ? std::optional<int>(EncodeLock((*before)[OptionList::LockBit])) : std::nullopt,
            EncodeLock(lock));
    }
    if (before && NamesFuses(choice)) {
        const FuseGroup group = session.access.Device().fuseGroup;
        ShowByte(session, Text::tr("ヒューズバイト"), EncodeFuses(group, *before),
                 *EncodeFuses(group, Applied(choice, *before)));
    }
}

Failure NotAccepted() {
    return {cause::NotAccepted, Text::tr("チップが Lock/Fuse ビットを受け付けませんでした。")};
}

Status ConfirmLocked(Session& session) {
    if (const Status failed = session.access.DetectChip()) {
        return failed;
    }
    const bool locked = session.access.Locked();
    session.output.Report(report::Options,
                          locked ? QJsonObject{{u"LOCK"_s, u"full"_s}} : QJsonObject());
    return locked ? Status{} : NotAccepted();
}

/// A locked chip silently ignores writes.
Status Confirm(Session& session, const OptionChoice& wanted) {
    if (wanted[OptionList::LockBit] == kLockFull) {
        return ConfirmLocked(session);
    }
    if (!IsReadable(session.access.Device())) {
        session.output.Remark(
            Text::tr("このデバイスのロックビットは読み返せません。確認していません。"));
        session.output.Report(report::Confirmed, false);
        return {};
    }
    const auto now = ReadBits(session);
    if (!now) {
        return now.Failed();
    }
    return *now == wanted ? Status{} : NotAccepted();
}

/// One of the two bytes, and the proof that the chip has taken it.
Status WriteByte(Session& session, LockFusePart part, const OptionChoice& wanted) {
    session.output.Report(report::Confirmed, true);
    session.bench.state.options = wanted;
    const bool written = session.access.WriteLockFuse(part).done;
    if (const Status failed = session.access.Judge(
            written, {cause::CommandRefused, Text::tr("Lock/Fuse ビットを書けません。")})) {
        return failed;
    }
    return Confirm(session, wanted);
}

/// The fuses go first: once the lock bits are set, the chip refuses fuses.
Status WriteBits(Session& session, const OptionChoice& choice) {
    if (const Status failed = session.access.DetectPart(false)) {
        return failed;
    }
    std::optional<OptionChoice> before;
    if (IsReadable(session.access.Device())) {
        const auto reading = ReadBitsTwice(session);
        if (!reading) {
            return reading.Failed();
        }
        before = *reading;
    }
    ShowChange(session, before, choice);
    OptionChoice wanted = before.value_or(OptionChoice{});
    if (NamesFuses(choice)) {
        wanted = Applied(FusesOf(choice), wanted);
        if (const Status failed = WriteByte(session, LockFusePart::Fuses, wanted)) {
            return failed;
        }
    }
    if (choice[OptionList::LockBit] == kNone) {
        return {};
    }
    wanted[OptionList::LockBit] = choice[OptionList::LockBit];
    return WriteByte(session, LockFusePart::Lock, wanted);
}

}  // namespace

QString TakesFuses(const CurrentDevice& device) {
    return IsReadable(device)
               ? Text::tr("%1 で指定できるビット:").arg(PartNumber(device.name)) + u'\n' +
                     Offer(device)
               : Text::tr("%1 にヒューズはありません。ロックビットは lock で書きます。")
                     .arg(PartNumber(device.name));
}

QString TakesLock(const CurrentDevice&) {
    return Text::tr(
        "MODE:\n"
        "  full   書き込みもベリファイもできなくする\n"
        "  write  書き込みをできなくする\n"
        "  none   ロックしない（ロックを外せるのは消去だけ）");
}

Status Fuses(Session& session, const Call& call) {
    const CurrentDevice& device = session.access.Device();
    OptionChoice choice;
    for (const QString& text : call.arguments) {
        if (const Status failed = AddChoice(device, text, choice)) {
            return failed;
        }
    }
    if (!IsReadable(device)) {
        return Failure{cause::NotReadable, Text::tr("このデバイスにヒューズはなく、ロックビットは読"
                                                    "めません。書くには lock を使います。")};
    }
    if (const Status failed = session.access.RequirePort()) {
        return failed;
    }
    if (!call.arguments.isEmpty()) {
        return WriteBits(session, choice);
    }
    if (const Status failed = session.access.DetectPart(false)) {
        return failed;
    }
    const auto reading = ReadBits(session);
    if (!reading) {
        return reading.Failed();
    }
    for (const OptionRow& row : RowsOf(device)) {
        session.output.Print(u"%1 = %2"_s.arg(row.name, WordOf(row, (*reading)[row.list])));
    }
    return {};
}

Status Lock(Session& session, const Call& call) {
    const OptionRow& row = OptionRows()[static_cast<std::size_t>(OptionList::LockBit)];
    const auto entry = FindEntry(row, call.arguments[0]);
    if (!entry) {
        return Failure{
            cause::WrongUse,
            Text::tr("MODE は full、write、none のどれかです: %1").arg(call.arguments[0])};
    }
    if (const Status failed = session.access.RequirePort()) {
        return failed;
    }
    OptionChoice choice;
    choice[OptionList::LockBit] = *entry;
    return WriteBits(session, choice);
}

}  // namespace tolvex
