// SPDX-License-Identifier: MIT
#include "cli/fuses_command.h"

#include <iterator>

#include "cli/fuse_session.h"

namespace tolvex {

using namespace Qt::StringLiterals;

namespace {

/// "CKSEL=1K CK" among the lists that the chip has.
std::optional<FuseChoice> ParseChoice(const OptionLists& lists, const QString& text) {
    const qsizetype sign = text.indexOf(u'=');
    for (const OptionList list : ShownLists(lists)) {
        if (sign > 0 && FuseName(list).compare(text.left(sign), Qt::CaseInsensitive) == 0) {
            const auto entry = FindEntry(lists, list, text.mid(sign + 1));
            return entry ? std::optional(FuseChoice{list, *entry}) : std::nullopt;
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
            words << EntryWord(lists, list, entry);
        }
        lines << u"  %1 = %2"_s.arg(FuseName(list), words.join(u" | "_s));
    }
    return lines.join(u'\n');
}

}  // namespace

FusesCommand::FusesCommand()
    : CliCommand({u"fuses"_s, u"[NAME=VALUE…]"_s, 0, static_cast<int>(std::size(kOptionLists)),
                  u"Lock/Fuse ビットを読む、または書く。"_s}) {}

int FusesCommand::Run(Session& session, const Call& call) {
    OptionLists& lists = session.Lists();
    QList<FuseChoice> choices;
    for (const QString& text : call.arguments) {
        const auto choice = ParseChoice(lists, text);
        if (!choice) {
            return session.Fail(kWrongUse, "wrongUse",
                                u"指定できません: %1\n指定できる値:\n%2"_s.arg(text, Offer(lists)));
        }
        choices << *choice;
    }
    if (!lists.Readable()) {
        return session.Fail(
            kWrongUse, "notReadable",
            u"このデバイスにヒューズはなく、ロックビットは読めません。書くには lock を使います。"_s);
    }
    FuseSession fuses(session);
    if (!choices.isEmpty()) {
        return fuses.Write(choices);
    }
    const int status = fuses.Read();
    if (status != kDone || session.Port().Stopped()) {
        return status;
    }
    for (const OptionList list : ShownLists(lists)) {
        session.Print(u"%1 = %2"_s.arg(FuseName(list),
                                       lists.Entries(list).value(lists.SelectedOption(list))));
    }
    session.Report()[u"options"_s] = SelectionJson(lists);
    return kDone;
}

}  // namespace tolvex
