// SPDX-License-Identifier: MIT
#include "cli/read_command.h"

#include "cli/image_files.h"

namespace tolvex {

using namespace Qt::StringLiterals;

ReadCommand::ReadCommand()
    : CliCommand({u"read"_s, u"CODE [DATA]"_s, 1, 2,
                  u"チップ全体を読んでファイルに書く（Read ボタン）。"_s}) {}

int ReadCommand::Run(Session& session, const Call& call) {
    if (const int status = session.RequirePort()) {
        return status;
    }
    const ChainResult result = session.RunChain(u"Read");
    int status = session.Judge(result.read && result.read->Complete(), "readFailed",
                               u"チップを読めません。ファイルは書いていません。"_s);
    if (status != kDone || session.Port().Stopped()) {
        return status;
    }
    const ImageFiles files = ImageFiles::ToWrite(call.arguments);
    status = WriteImages(session, files);
    if (status == kDone) {
        session.Print(u"保存しました: %1, %2"_s.arg(files.code, files.data));
        session.Report()[u"files"_s] =
            QJsonObject{{u"code"_s, files.code}, {u"data"_s, files.data}};
    }
    return status;
}

}  // namespace tolvex
