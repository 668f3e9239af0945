// SPDX-License-Identifier: MIT
#include "cli/lock_command.h"

#include "cli/fuse_session.h"

namespace tolvex {

using namespace Qt::StringLiterals;

LockCommand::LockCommand()
    : CliCommand(
          {u"lock"_s, u"MODE"_s, 1, 1,
           u"ロックビットを書く: full (書込み & ベリファイ 禁止)、write (書込み禁止)、none。"_s}) {}

int LockCommand::Run(Session& session, const Call& call) {
    const auto entry = FindEntry(session.Lists(), OptionList::LockBit, call.arguments[0]);
    if (!entry) {
        return session.Fail(kWrongUse, "wrongUse",
                            u"MODE は full、write、none のどれかです: %1"_s.arg(call.arguments[0]));
    }
    return FuseSession(session).Write({{OptionList::LockBit, *entry}});
}

}  // namespace tolvex
