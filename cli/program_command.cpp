// SPDX-License-Identifier: MIT
// The commands that erase the chip. Whatever can go wrong before is looked at before.
#include <QDateTime>
#include <QDir>
#include <QFileInfo>

#include "cli/command.h"
#include "cli/image_files.h"
#include "cli/write_plan.h"

namespace tolvex {

using namespace Qt::StringLiterals;

namespace {

/// What a command does before it changes the chip.
struct Precautions {
    bool force = false;
    QString backup;                ///< a folder; empty = none
    std::optional<Memories> kept;  ///< are written back as they were

    bool MustRead() const { return kept || !backup.isEmpty(); }
};

Precautions From(const Call& call) {
    return {.force = call.Has("force"),
            .backup = call.Has("backup") ? call.options.value(u"backup"_s) : QString(),
            .kept = {}};
}

/// A writer, and a chip that may be changed.
int ProveChip(Session& session, const Precautions& precautions) {
    if (!precautions.backup.isEmpty() && !QDir().mkpath(precautions.backup)) {
        return session.Fail(cause::FileNotWritten,
                            u"フォルダを作れません: %1"_s.arg(precautions.backup));
    }
    if (precautions.MustRead()) {
        return session.DetectPart(precautions.force);
    }
    if (const int status = session.DetectChip()) {
        return status;
    }
    if (session.Reading().verdict == ChipVerdict::Locked) {
        session.Remark(u"チップはロックされています。消去してロックを解除します。"_s);
        return kDone;
    }
    return session.DetectedPart(precautions.force);
}

int WriteBackup(Session& session, const QString& folder) {
    const QString stem =
        QDir(folder).filePath(PartNumber(session.Device().name) + u'-' +
                              QDateTime::currentDateTime().toString(u"yyyyMMdd-HHmmss"_s));
    QString base = stem;
    for (int again = 2; QFileInfo::exists(base + u".hex"_s) || QFileInfo::exists(base + u".eep"_s);
         ++again) {
        base = stem + u"-%1"_s.arg(again);
    }
    const ImageFiles files{.code = base + u".hex"_s, .data = base + u".eep"_s, .memories = {}};
    const int status = SaveImages(session, files, session.Bench().state.images);
    if (status == kDone) {
        session.Report()[u"backup"_s] = files.Json();
    }
    return status;
}

int Backup(Session& session, const QString& folder) {
    if (folder.isEmpty()) {
        return kDone;
    }
    const SequenceResult result = session.Run(ReadSequence);
    if (const int status =
            session.Judge(result.read && result.read->Complete(), cause::WriterSilent,
                          u"チップを読めません。チップには何も書いていません。"_s)) {
        return status;
    }
    return WriteBackup(session, folder);
}

/// What is to be written back is read twice: once it is erased, nothing else knows it.
int Keep(Session& session, const std::optional<Memories>& kept, MemoryImages& images) {
    if (!kept) {
        return kDone;
    }
    MemoryImages again;
    return InOrder([&] { return session.ReadMemories(*kept, images); },
                   [&] { return session.ReadMemories(*kept, again); },
                   [&] {
                       return session.Judge(
                           Compare(session.Device(), *kept, images, again).isEmpty(),
                           cause::Unstable,
                           u"二度読んだ内容が違います。チップには何も書いていません。"_s);
                   });
}

void TellPlan(Session& session, const WritePlan& plan) {
    const double seconds = (session.Elapsed() + ProgramTime(plan, session.Device())).count();
    session.Tell(u"消去して書き込みます: Flash %1 word, EEPROM %2 byte, 全体で約 %3 秒"_s
                     .arg(plan.flashWords)
                     .arg(plan.eepromBytes)
                     .arg(seconds, 0, 'f', 1));
    session.Report()[u"plan"_s] = QJsonObject{{u"flashWords"_s, plan.flashWords},
                                              {u"eepromBytes"_s, plan.eepromBytes},
                                              {u"seconds"_s, seconds}};
}

/// The operation reads nothing back when there was nothing to write.
int ProveBlank(Session& session) {
    MemoryImages chip;
    return InOrder(
        [&] { return session.ReadMemories({}, chip); },
        [&] { return session.JudgeDifferences(Compare(session.Device(), {}, {}, chip)); });
}

int WriteChip(Session& session, const MemoryImages& images) {
    session.Bench().state.images = images;
    TellPlan(session, PlanFor(session.Bench().state));
    const SequenceResult result = session.Run(ProgramSequence);
    const QString text = u"書き込みを確認できませんでした。"_s;
    if (!result.erase || !result.erase->succeeded || !result.program) {
        return session.Judge(false, cause::CommandRefused, text);
    }
    if (result.program->nothingToWrite) {
        return ProveBlank(session);
    }
    const VerifyResult& verify = result.program->verify;
    return result.program->flashWritten && result.program->eepromWritten && verify.flashCompared &&
                   verify.eepromCompared
               ? session.JudgeDifferences(verify.differences)
               : session.Judge(false, cause::CommandRefused, text);
}

/// The files, and which memory keeps its content instead. A status.
int ChooseFiles(Session& session, const Call& call, ImageFiles& files, Precautions& precautions) {
    if (const int status = ImageFiles::From(session, call, ImageFiles::Use::Read, files)) {
        return status;
    }
    if (!files.memories.Both()) {
        precautions.kept = {.flash = !files.memories.flash, .eeprom = !files.memories.eeprom};
    }
    if (call.Has("keep-eeprom")) {
        if (call.arguments.size() > 1 || !files.memories.flash) {
            return session.Fail(cause::WrongUse,
                                u"--keep-eeprom と EEPROM のファイルは一緒に指定できません。"_s);
        }
        files.data.clear();
        precautions.kept = {.flash = false, .eeprom = true};
    }
    return kDone;
}

int RunProgram(Session& session, const Call& call, LoadedFiles& loaded) {
    Precautions precautions = From(call);
    ImageFiles files;
    return InOrder([&] { return ChooseFiles(session, call, files, precautions); },
                   [&] { return LoadFiles(session, files, precautions.force, loaded); },
                   [&] { return ProveChip(session, precautions); },
                   [&] { return Backup(session, precautions.backup); },
                   [&] { return Keep(session, precautions.kept, loaded.images); },
                   [&] { return WriteChip(session, loaded.images); });
}

int EraseChip(Session& session) {
    const double seconds = (session.Elapsed() + EraseTime()).count();
    session.Tell(u"チップ全体を消去します: 全体で約 %1 秒"_s.arg(seconds, 0, 'f', 1));
    session.Report()[u"plan"_s] = QJsonObject{{u"seconds"_s, seconds}};
    const SequenceResult result = session.Run(EraseSequence);
    const bool erased = result.erase && result.erase->succeeded;
    session.Report()[u"erased"_s] = erased;
    return session.Judge(erased, cause::CommandRefused, u"消去を確認できませんでした。"_s);
}

}  // namespace

int Program(Session& session, const Call& call) {
    LoadedFiles loaded;
    const int status =
        InOrder([&] { return RunProgram(session, call, loaded); },
                [&] {
                    return session.Judge(loaded.lossless, cause::PartlyWritten,
                                         u"ファイルのデータの一部は書き込めませんでした。"_s);
                });
    session.Report()[u"verified"_s] = status == kDone;
    return status;
}

int Erase(Session& session, const Call& call) {
    const Precautions precautions = From(call);
    return InOrder([&] { return ProveChip(session, precautions); },
                   [&] { return Backup(session, precautions.backup); },
                   [&] { return EraseChip(session); });
}

}  // namespace tolvex
