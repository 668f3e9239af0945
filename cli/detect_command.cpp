// SPDX-License-Identifier: MIT
#include "cli/detect_command.h"

#include <algorithm>
#include <iterator>

namespace tolvex {

using namespace Qt::StringLiterals;

namespace {

struct VerdictRow {
    ChipVerdict verdict;
    QStringView key;
    QStringView text;
};

constexpr VerdictRow kVerdicts[] = {
    {ChipVerdict::NoReply, u"noReply", u"応答なし"},
    {ChipVerdict::Accepted, u"match", u"一致"},
    {ChipVerdict::Protected, u"locked", u"ロックされている"},
    {ChipVerdict::EmptySocket, u"emptySocket", u"チップなし"},
    {ChipVerdict::Mismatch, u"mismatch", u"不一致"},
};

}  // namespace

DetectCommand::DetectCommand()
    : CliCommand({u"detect"_s, {}, 0, 0, u"ライタとチップを調べる。"_s}) {}

int DetectCommand::Run(Session& session, const Call&) {
    const int status = session.DetectChip();
    if (status != kDone || session.Port().Stopped()) {
        return status;
    }
    const Workbench& bench = session.Bench();
    const auto& writer = session.Identity();
    const auto& row = *std::ranges::find(kVerdicts, session.Verdict(), &VerdictRow::verdict);
    session.Print(u"ライタ: %1"_s.arg(writer.identifier));
    session.Print(u"ファームウエア: %1"_s.arg(writer.softwareVersion));
    session.Print(u"ハードウエア: %1"_s.arg(writer.hardwareVersion));
    session.Print(u"シグネチャ: %1"_s.arg(session.Person().Panel(kSignaturePanel)));
    session.Print(u"デバイス: %1 (%2)"_s.arg(bench.state.device.name, row.text));
    session.Report()[u"chip"_s] = row.key.toString();
    return session.Judge(session.Verdict() == ChipVerdict::Accepted, "chipRefused",
                         u"チップがデバイスと合いません: %1"_s.arg(row.text));
}

}  // namespace tolvex
