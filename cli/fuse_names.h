// SPDX-License-Identifier: MIT
#pragma once

#include <QJsonObject>
#include <QList>
#include <optional>

#include "cli/option_lists.h"

namespace tolvex {

/// A choice typed as "CKSEL=1K CK".
struct FuseChoice {
    OptionList list;
    int entry;
};

/// The name of a list on the command line: "FSTRT", "LOCK".
QString FuseName(OptionList list);
/// The lists that the selected chip has, in the order of the settings window.
QList<OptionList> ShownLists(const OptionLists& lists);
/// Entries of the lock list have an English word each, because they are no ASCII: "full" (neither
/// written nor verified any more), "write" (not written), "none". Others are their own word.
QString EntryWord(const OptionLists& lists, OptionList list, int entry);
/// The entry that `value` names: its text or word in either case, or its number. Nothing when there
/// is none.
std::optional<int> FindEntry(const OptionLists& lists, OptionList list, const QString& value);
/// What is selected: {"FSTRT": "Disable", "LOCK": "none"}.
QJsonObject SelectionJson(const OptionLists& lists);

}  // namespace tolvex
