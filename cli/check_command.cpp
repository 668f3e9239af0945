// SPDX-License-Identifier: MIT
#include "cli/check_command.h"

#include <QJsonArray>
#include <limits>

#include "cli/hex_texts.h"

namespace tolvex {

using namespace Qt::StringLiterals;

CheckCommand::CheckCommand()
    : CliCommand({u"check"_s, u"FILE…"_s, 1, std::numeric_limits<int>::max(),
                  u"HEX ファイルを厳密に調べる。"_s}) {}

int CheckCommand::Run(Session& session, const Call& call) {
    const CurrentDevice& device = session.Bench().state.device;
    QJsonArray files;
    bool clean = true;
    for (const QString& path : call.arguments) {
        const bool data = path.endsWith(u".eep"_s, Qt::CaseInsensitive);
        const int size = data ? device.eepromBytes : 2 * device.flashWords;
        const HexReport report = CheckHex(path, size);
        clean = clean && report.Clean();
        QJsonArray findings;
        for (const HexFinding& finding : report.findings) {
            session.Print(u"%1: %2"_s.arg(path, HexFindingText(finding)));
            findings << HexFindingJson(finding);
        }
        if (!report.readable) {
            session.Print(u"%1: 読めません。"_s.arg(path));
        } else if (report.Clean()) {
            session.Print(u"%1: OK (%2 byte / %3 byte)"_s.arg(path, QString::number(report.bytes),
                                                              QString::number(size)));
        }
        files << QJsonObject{{u"file"_s, path},
                             {u"readable"_s, report.readable},
                             {u"records"_s, report.records},
                             {u"bytes"_s, report.bytes},
                             {u"findings"_s, findings}};
    }
    session.Report()[u"files"_s] = files;
    return clean ? int{kDone}
                 : session.Fail(kWrongUse, "badFile", u"HEX ファイルに誤りがあります。"_s);
}

}  // namespace tolvex
