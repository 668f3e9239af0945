// SPDX-License-Identifier: MIT
#include "cli/program_command.h"

#include "cli/image_files.h"

namespace tolvex {

using namespace Qt::StringLiterals;

ProgramCommand::ProgramCommand()
    : CliCommand({u"program"_s, u"CODE [DATA]"_s, 1, 2,
                  u"消去・書き込み・ベリファイをする（Program ボタン）。"_s}) {}

int ProgramCommand::Run(Session& session, const Call& call) {
    if (const int status = LoadImages(session, ImageFiles::From(call.arguments))) {
        return status;
    }
    if (const int status = session.DetectChip()) {
        return status;
    }
    Workbench& bench = session.Bench();
    bench.toolbar.Click(u"Program");
    const bool verified = bench.erase.Erased() && (bench.program.LastOutcome().nothingToWrite ||
                                                   bench.verify.LastFindings().Matches());
    session.Report()[u"verified"_s] = verified;
    return session.Judge(verified, "notVerified", u"書き込みを確認できませんでした。"_s);
}

}  // namespace tolvex
