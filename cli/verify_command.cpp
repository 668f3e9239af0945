// SPDX-License-Identifier: MIT
#include "cli/verify_command.h"

#include <QJsonArray>

#include "cli/image_files.h"
#include "cli/preflight.h"

namespace tolvex {

using namespace Qt::StringLiterals;

namespace {

QJsonArray Json(const QList<VerifyResult::Difference>& differences) {
    QJsonArray array;
    for (const auto& difference : differences) {
        array << QJsonObject{{u"memory"_s, difference.flash ? u"flash"_s : u"eeprom"_s},
                             {u"address"_s, difference.address},
                             {u"expected"_s, difference.image},
                             {u"chip"_s, difference.chip}};
    }
    return array;
}

}  // namespace

VerifyCommand::VerifyCommand()
    : CliCommand({u"verify"_s,
                  u"CODE [DATA]"_s,
                  1,
                  2,
                  u"チップ全体をファイルと比べる（Verify ボタン）。"_s,
                  {Preflight::ForceOption()}}) {}

int VerifyCommand::Run(Session& session, const Call& call) {
    const bool force = Preflight::From(call.options).force;
    const ImageFiles files = ImageFiles::ToRead(call.arguments);
    if (const int status = ProveFiles(session, files, force)) {
        return status;
    }
    if (const int status = session.RequirePort()) {
        return status;
    }
    Workbench& bench = session.Bench();
    FillImages(session, files);
    if (force) {
        bench.check.TolerateMismatch();
    }
    const VerifyResult findings = session.RunChain(u"Verify").verify.value_or(VerifyResult{});
    if (!findings.differences.isEmpty()) {
        session.Print(QString::fromLatin1(findings.report).remove(u'\r').trimmed());
    }
    session.Report()[u"verified"_s] = findings.Matches();
    session.Report()[u"differences"_s] = Json(findings.differences);
    const bool differs = findings.flashDiffers || findings.eepromDiffers;
    const bool failed = !findings.flashCompared || !findings.eepromCompared;
    return differs && !failed
               ? session.Judge(false, "differs", u"チップの内容がファイルと違います。"_s)
               : session.Judge(!failed, "notVerified", u"ベリファイできませんでした。"_s);
}

}  // namespace tolvex
