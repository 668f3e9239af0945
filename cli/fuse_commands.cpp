// SPDX-License-Identifier: MIT
// Lock and fuse bits. Nothing is written but what was named in words, and what has to be written
// with it, which was read twice.
#include <algorithm>
#include <iterator>

#include "cli/command.h"
#include "device/fuse_encoding.h"

namespace tolvex {

using namespace Qt::StringLiterals;

namespace {

constexpr int kLockFull = 0;  ///< the entry after which a chip can't be read
constexpr int kUnknown = -1;  ///< bits that no entry stands for

/// As the lists are declared.
constexpr QStringView kNames[] = {u"FSTRT", u"RCEN", u"BODLEVEL", u"BODEN", u"CKSEL", u"LOCK"};

/// The lock list's entries have a word each that can be typed on any keyboard.
constexpr QStringView kLockWords[] = {u"full", u"write", u"none"};

/// The selected entry of each list.
using Selection = QMap<OptionList, int>;

QString NameOf(OptionList list) {
    return kNames[static_cast<std::size_t>(list)].toString();
}

/// Those that the chip has, in the order of the settings window.
QList<OptionList> ShownLists(const OptionLists& lists) {
    QList<OptionList> shown;
    std::ranges::copy_if(kOptionLists, std::back_inserter(shown),
                         [&lists](OptionList list) { return lists.IsShown(list); });
    return shown;
}

QString WordOf(const OptionLists& lists, OptionList list, int entry) {
    const QStringList entries = lists.Entries(list);
    if (entry < 0 || entry >= entries.size()) {
        return u"unknown"_s;
    }
    return list == OptionList::LockBit ? kLockWords[entry].toString() : entries[entry];
}

std::optional<int> FindEntry(const OptionLists& lists, OptionList list, const QString& value) {
    for (int entry = 0; entry < lists.Entries(list).size(); ++entry) {
        for (const QString& name : {lists.Entries(list)[entry], WordOf(lists, list, entry)}) {
            if (name.compare(value, Qt::CaseInsensitive) == 0) {
                return entry;
            }
        }
    }
    return std::nullopt;
}

/// The values that each list takes, a line a list.
QString Offer(const OptionLists& lists) {
    QStringList lines;
    for (const OptionList list : ShownLists(lists)) {
        QStringList words;
        for (int entry = 0; entry < lists.Entries(list).size(); ++entry) {
            words << WordOf(lists, list, entry);
        }
        lines << u"  %1 = %2"_s.arg(NameOf(list), words.join(u" | "_s));
    }
    return lines.join(u'\n');
}

/// "CKSEL=1K CK" among the lists that the chip has, into `choices`. Empty, or what is wrong.
QString AddChoice(const OptionLists& lists, const QString& text, Selection& choices) {
    const QString name = text.section(u'=', 0, 0);
    for (const OptionList list : ShownLists(lists)) {
        if (NameOf(list).compare(name, Qt::CaseInsensitive) != 0) {
            continue;
        }
        const auto entry = FindEntry(lists, list, text.section(u'=', 1));
        if (choices.contains(list)) {
            return u"二度指定されています: %1"_s.arg(name);
        }
        if (entry && text.contains(u'=')) {
            choices[list] = *entry;
            return {};
        }
    }
    return u"指定できません: %1\n指定できる値:\n%2"_s.arg(text, Offer(lists));
}

QJsonObject Json(const OptionLists& lists, const Selection& selection) {
    QJsonObject json;
    for (auto row = selection.begin(); row != selection.end(); ++row) {
        json[NameOf(row.key())] = WordOf(lists, row.key(), row.value());
    }
    return json;
}

/// A fresh reading of the chip, and nothing that was known before.
int ReadBits(Session& session, Selection& selection) {
    OptionLists& lists = session.Lists();
    lists.SelectOption(OptionList::LockBit, kUnknown);
    const LockFuseResult result = session.RunFuses(&LockFuseBits::cmdFuseRead_Click);
    if (const int status = session.Judge(result.done && result.lockByte, cause::WriterSilent,
                                         u"Lock/Fuse ビットを読めません。"_s)) {
        return status;
    }
    if (const int status = session.RequirePart(false)) {
        return status;
    }
    selection.clear();
    for (const OptionList list : ShownLists(lists)) {
        selection[list] = lists.SelectedOption(list);
    }
    session.Report()[u"options"_s] = Json(lists, selection);
    return session.Judge(selection[OptionList::LockBit] != kLockFull, cause::Implausible,
                         u"シグネチャを読めるのに、ロックビットが full と読めました。"_s);
}

int ReadBitsTwice(Session& session, Selection& selection) {
    Selection again;
    return InOrder(
        [&] { return ReadBits(session, selection); }, [&] { return ReadBits(session, again); },
        [&] {
            return session.Judge(selection == again, cause::Unstable,
                                 u"二度読んだ Lock/Fuse ビットが違います。何も書いていません。"_s);
        });
}

void ShowByte(Session& session, const QString& name, std::optional<int> before, int after) {
    session.Tell(u"%1: %2 -> 0x%3"_s.arg(name, before ? u"0x"_s + HexByte(*before) : u"?"_s,
                                         HexByte(after)));
}

/// What is about to change. The lists are left at what is to be written.
void ShowChange(Session& session, const Selection& before, const Selection& choices) {
    OptionLists& lists = session.Lists();
    const FuseGroup group = session.Device().fuseGroup;
    const auto fusesBefore = EncodeFuses(group, lists);
    for (auto row = choices.begin(); row != choices.end(); ++row) {
        const QString old =
            before.contains(row.key()) ? WordOf(lists, row.key(), before[row.key()]) : u"?"_s;
        session.Tell(
            u"%1: %2 -> %3"_s.arg(NameOf(row.key()), old, WordOf(lists, row.key(), row.value())));
        lists.SelectOption(row.key(), row.value());
    }
    if (choices.contains(OptionList::LockBit)) {
        const int old = before.value(OptionList::LockBit, kUnknown);
        ShowByte(session, u"ロックバイト"_s,
                 old == kUnknown ? std::nullopt : std::optional<int>(EncodeLock(old)),
                 EncodeLock(choices[OptionList::LockBit]));
    }
    if (choices.size() > (choices.contains(OptionList::LockBit) ? 1 : 0)) {
        ShowByte(session, u"ヒューズバイト"_s, *fusesBefore, *EncodeFuses(group, lists));
    }
}

/// A protected chip takes every write without a murmur.
int Confirm(Session& session, const Selection& wanted) {
    const bool full = wanted.value(OptionList::LockBit, kUnknown) == kLockFull;
    const QString text = u"チップが Lock/Fuse ビットを受け付けませんでした。"_s;
    if (full) {
        if (const int status = session.DetectChip()) {
            return status;
        }
        const bool locked = session.Reading().verdict == ChipVerdict::Protected;
        session.Report()[u"options"_s] =
            locked ? QJsonObject{{u"LOCK"_s, u"full"_s}} : QJsonObject();
        return locked ? int{kDone} : session.Fail(cause::NotTaken, text);
    }
    if (!session.Lists().Readable()) {
        session.Remark(u"このデバイスのロックビットは読み返せません。確認していません。"_s);
        session.Report()[u"confirmed"_s] = false;
        return kDone;
    }
    Selection now;
    return InOrder([&] { return ReadBits(session, now); },
                   [&] { return session.Judge(now == wanted, cause::NotTaken, text); });
}

/// One of the two bytes, and the proof that the chip has taken it.
int WriteByte(Session& session, LockFuseResult (LockFuseBits::*operation)(),
              const Selection& wanted) {
    session.Report()[u"confirmed"_s] = true;
    const bool written = session.RunFuses(operation).done;
    const int status =
        session.Judge(written, cause::CommandRefused, u"Lock/Fuse ビットを書けません。"_s);
    return status == kDone ? Confirm(session, wanted) : status;
}

/// The fuses go first: once the lock bits are set, the chip refuses fuses.
int WriteBits(Session& session, const Selection& choices) {
    Selection wanted;
    const int found =
        session.Lists().Readable() ? ReadBitsTwice(session, wanted) : session.DetectPart(false);
    if (found != kDone) {
        return found;
    }
    ShowChange(session, wanted, choices);
    for (auto row = choices.begin(); row != choices.end(); ++row) {
        if (row.key() != OptionList::LockBit) {
            wanted[row.key()] = row.value();
        }
    }
    const bool locks = choices.contains(OptionList::LockBit);
    if (choices.size() > (locks ? 1 : 0)) {
        const int status = WriteByte(session, &LockFuseBits::WriteFuses, wanted);
        if (status != kDone || !locks) {
            return status;
        }
    }
    wanted[OptionList::LockBit] = choices[OptionList::LockBit];
    session.Lists().SelectOption(OptionList::LockBit, choices[OptionList::LockBit]);
    return WriteByte(session, &LockFuseBits::WriteLock, wanted);
}

}  // namespace

int Fuses(Session& session, const Call& call) {
    OptionLists& lists = session.Lists();
    Selection selection;
    for (const QString& text : call.arguments) {
        const QString wrong = AddChoice(lists, text, selection);
        if (!wrong.isEmpty()) {
            return session.Fail(cause::WrongUse, wrong);
        }
    }
    if (!lists.Readable()) {
        return session.Fail(
            cause::NotReadable,
            u"このデバイスにヒューズはなく、ロックビットは読めません。書くには lock を使います。"_s);
    }
    if (const int status = session.RequirePort()) {
        return status;
    }
    if (!selection.isEmpty()) {
        return WriteBits(session, selection);
    }
    if (const int status = ReadBits(session, selection)) {
        return status;
    }
    for (const OptionList list : ShownLists(lists)) {
        session.Print(u"%1 = %2"_s.arg(NameOf(list), WordOf(lists, list, selection[list])));
    }
    return kDone;
}

int Lock(Session& session, const Call& call) {
    const auto entry = FindEntry(session.Lists(), OptionList::LockBit, call.arguments[0]);
    if (!entry) {
        return session.Fail(cause::WrongUse,
                            u"MODE は full、write、none のどれかです: %1"_s.arg(call.arguments[0]));
    }
    const int status = session.RequirePort();
    return status == kDone ? WriteBits(session, {{OptionList::LockBit, *entry}}) : status;
}

}  // namespace tolvex
