// SPDX-License-Identifier: MIT
#include "cli/fuse_names.h"

#include <algorithm>
#include <iterator>

namespace tolvex {

using namespace Qt::StringLiterals;

namespace {

struct NameRow {
    OptionList list;
    QStringView name;
};

constexpr NameRow kNames[] = {
    {OptionList::FSTRT, u"FSTRT"},       {OptionList::RCEN, u"RCEN"},
    {OptionList::BODLEVEL, u"BODLEVEL"}, {OptionList::BODEN, u"BODEN"},
    {OptionList::CKSEL, u"CKSEL"},       {OptionList::LockBit, u"LOCK"},
};

constexpr QStringView kLockWords[] = {u"full", u"write", u"none"};

}  // namespace

QString FuseName(OptionList list) {
    return std::ranges::find(kNames, list, &NameRow::list)->name.toString();
}

QList<OptionList> ShownLists(const OptionLists& lists) {
    QList<OptionList> shown;
    for (const OptionList list : kOptionLists) {
        if (lists.IsShown(list)) {
            shown << list;
        }
    }
    return shown;
}

QString EntryWord(const OptionLists& lists, OptionList list, int entry) {
    const QStringList entries = lists.Entries(list);
    if (list == OptionList::LockBit && entry >= 0 &&
        entry < static_cast<int>(std::size(kLockWords))) {
        return kLockWords[entry].toString();
    }
    return entries.value(entry);
}

std::optional<int> FindEntry(const OptionLists& lists, OptionList list, const QString& value) {
    const auto count = static_cast<int>(lists.Entries(list).size());
    for (int entry = 0; entry < count; ++entry) {
        for (const QString& name : {lists.Entries(list)[entry], EntryWord(lists, list, entry)}) {
            if (name.compare(value, Qt::CaseInsensitive) == 0) {
                return entry;
            }
        }
    }
    bool isNumber = false;
    const int entry = value.toInt(&isNumber);
    return isNumber && entry >= 0 && entry < count ? std::optional(entry) : std::nullopt;
}

QJsonObject SelectionJson(const OptionLists& lists) {
    QJsonObject selection;
    for (const OptionList list : ShownLists(lists)) {
        selection[FuseName(list)] = EntryWord(lists, list, lists.SelectedOption(list));
    }
    return selection;
}

}  // namespace tolvex
