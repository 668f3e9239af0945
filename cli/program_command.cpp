// SPDX-License-Identifier: MIT
#include "cli/program_command.h"

#include <algorithm>

#include "cli/image_files.h"
#include "cli/preflight.h"
#include "cli/wire_time.h"
#include "device/used_extent.h"

namespace tolvex {

using namespace Qt::StringLiterals;

ProgramCommand::ProgramCommand()
    : CliCommand({u"program"_s,
                  u"CODE [DATA]"_s,
                  1,
                  2,
                  u"消去・書き込み・ベリファイをする（Program ボタン）。"_s,
                  {Preflight::ForceOption(),
                   {u"keep-eeprom"_s, u"EEPROM を先に読み、同じ内容を書き戻す。"_s},
                   Preflight::BackupOption()}}) {}

int ProgramCommand::Run(Session& session, const Call& call) {
    const int status = Prepare(session, call);
    if (status != kDone || session.Port().Stopped()) {
        return status;
    }
    TellPlan(session);
    const ChainResult result = session.RunChain(u"Program");
    const bool verified = result.erase && result.erase->erased && result.program &&
                          (result.program->nothingToWrite || result.program->Verified());
    session.Report()[u"verified"_s] = verified;
    if (!verified && !session.Port().Stopped()) {
        session.Remark(session.Chip().Text());
    }
    return session.Judge(verified, "notVerified", u"書き込みを確認できませんでした。"_s);
}

/// Up to here the chip is only read.
int ProgramCommand::Prepare(Session& session, const Call& call) {
    const Preflight preflight = Preflight::From(call.options);
    ImageFiles files = ImageFiles::ToRead(call.arguments);
    if (preflight.keepEeprom) {
        if (call.arguments.size() > 1) {
            return session.Fail(kWrongUse, "wrongUse",
                                u"--keep-eeprom と DATA は一緒に指定できません。"_s);
        }
        files.data.clear();
    }
    for (const auto& step : {
             std::function([&] { return ProveFiles(session, files, preflight.force); }),
             std::function([&] { return preflight.ProveChip(session); }),
             std::function([&] { return preflight.SaveChip(session); }),
         }) {
        const int status = step();
        if (status != kDone || session.Port().Stopped()) {
            return status;
        }
    }
    const EepromImage kept = session.Bench().state.images.eeprom;
    FillImages(session, files);
    if (preflight.keepEeprom) {
        session.Bench().state.images.eeprom = kept;
    }
    return kDone;
}

void ProgramCommand::TellPlan(Session& session) {
    const Workbench& bench = session.Bench();
    const int lastWord = LastUsedWord(bench.state.images.flash, bench.state.device.flashWords);
    WritePlan plan;
    plan.flashWords = lastWord < 0 ? 0 : std::max(lastWord, 1) + 1;
    plan.eepromExtent = LastUsedByte(bench.state.images.eeprom, bench.state.device.eepromBytes) + 1;
    plan.eepromBytes =
        plan.eepromExtent - static_cast<int>(std::count(
                                bench.state.images.eeprom.begin(),
                                bench.state.images.eeprom.begin() + plan.eepromExtent, kErased));
    const double seconds = ProgramTime(plan).count();
    session.Tell(
        u"消去して書き込みます: Flash %1 word, EEPROM %2 byte, 約 %3 秒"_s.arg(plan.flashWords)
            .arg(plan.eepromBytes)
            .arg(seconds, 0, 'f', 1));
    session.Report()[u"plan"_s] = QJsonObject{{u"flashWords"_s, plan.flashWords},
                                              {u"eepromBytes"_s, plan.eepromBytes},
                                              {u"seconds"_s, seconds}};
}

}  // namespace tolvex
