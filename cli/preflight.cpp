// SPDX-License-Identifier: MIT
#include "cli/preflight.h"

#include <QDateTime>
#include <QDir>
#include <QFileInfo>

#include "cli/device_choice.h"
#include "cli/image_files.h"

namespace tolvex {

using namespace Qt::StringLiterals;

QCommandLineOption Preflight::ForceOption() {
    return {u"force"_s, u"誤りのある HEX ファイルや、シグネチャの合わないチップでも続ける。"_s};
}

QCommandLineOption Preflight::BackupOption() {
    return {u"backup"_s, u"先にチップの内容を DIR に日付つきの HEX ファイルで保存する。"_s,
            u"DIR"_s};
}

Preflight Preflight::From(const QCommandLineParser& options) {
    const QStringList known = options.optionNames();
    return {known.contains(u"force"_s), known.contains(u"keep-eeprom"_s),
            known.contains(u"backup"_s) ? options.value(u"backup"_s) : QString()};
}

int Preflight::ProveChip(Session& session) const {
    if (!backup.isEmpty() && !QDir().mkpath(backup)) {
        return session.Fail(kWrongUse, "backupFailed", u"フォルダを作れません: %1"_s.arg(backup));
    }
    const int status = session.DetectChip();
    return status != kDone || session.Port().Stopped() ? status : JudgeChip(session);
}

int Preflight::JudgeChip(Session& session) const {
    const bool mustRead = keepEeprom || !backup.isEmpty();
    switch (session.Verdict()) {
        case ChipVerdict::Accepted:
            return kDone;
        case ChipVerdict::Protected:
            if (mustRead) {
                return session.Fail(kRefused, "chipLocked",
                                    u"チップがロックされていて、内容を読めません。"_s);
            }
            session.Remark(u"チップはロックされています。消去してロックを解除します。"_s);
            return kDone;
        case ChipVerdict::EmptySocket:
            return session.Fail(kRefused, "noChip", u"ソケットにチップがありません。"_s);
        case ChipVerdict::NoReply:
        case ChipVerdict::Mismatch:
            break;
    }
    if (!force) {
        return session.Fail(kRefused, "wrongChip",
                            u"シグネチャがデバイスと合いません。チップには何もしていません。"_s);
    }
    session.Remark(u"シグネチャがデバイスと合いませんが、続けます。"_s);
    session.Bench().check.TolerateMismatch();
    return kDone;
}

int Preflight::SaveChip(Session& session) const {
    if (!keepEeprom && backup.isEmpty()) {
        return kDone;
    }
    const ChainResult result = session.RunChain(u"Read");
    if (session.Port().Stopped()) {
        return kDone;
    }
    if (!result.read || !result.read->Complete()) {
        return session.Judge(false, "readFailed",
                             u"チップを読めません。チップには何も書いていません。"_s);
    }
    return backup.isEmpty() ? int{kDone} : WriteBackup(session);
}

int Preflight::WriteBackup(Session& session) const {
    const QString stem =
        QDir(backup).filePath(PartNumber(session.Bench().state.device.name) + u'-' +
                              QDateTime::currentDateTime().toString(u"yyyyMMdd-HHmmss"_s));
    QString base = stem;
    for (int again = 2; QFileInfo::exists(base + u".hex"_s); ++again) {
        base = stem + u"-%1"_s.arg(again);
    }
    const ImageFiles files{base + u".hex"_s, base + u".eep"_s};
    const int status = WriteImages(session, files);
    if (status == kDone) {
        session.Tell(u"保存しました: %1, %2"_s.arg(files.code, files.data));
        session.Report()[u"backup"_s] =
            QJsonObject{{u"code"_s, files.code}, {u"data"_s, files.data}};
    }
    return status;
}

}  // namespace tolvex
