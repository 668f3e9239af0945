// SPDX-License-Identifier: MIT
#include "cli/erase_command.h"

#include "cli/preflight.h"
#include "cli/wire_time.h"

namespace tolvex {

using namespace Qt::StringLiterals;

EraseCommand::EraseCommand()
    : CliCommand({u"erase"_s,
                  {},
                  0,
                  0,
                  u"Flash・EEPROM・ロックビットを消去する（Erase ボタン）。"_s,
                  {Preflight::ForceOption(), Preflight::BackupOption()}}) {}

int EraseCommand::Run(Session& session, const Call& call) {
    const Preflight preflight = Preflight::From(call.options);
    int status = preflight.ProveChip(session);
    if (status == kDone && !session.Port().Stopped()) {
        status = preflight.SaveChip(session);
    }
    if (status != kDone || session.Port().Stopped()) {
        return status;
    }
    const double seconds = EraseTime().count();
    session.Tell(u"チップ全体を消去します: 約 %1 秒"_s.arg(seconds, 0, 'f', 1));
    session.Report()[u"plan"_s] = QJsonObject{{u"seconds"_s, seconds}};
    const ChainResult result = session.RunChain(u"Erase");
    const bool erased = result.erase && result.erase->erased;
    session.Report()[u"erased"_s] = erased;
    return session.Judge(erased, "notErased", u"消去を確認できませんでした。"_s);
}

}  // namespace tolvex
