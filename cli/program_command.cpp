// SPDX-License-Identifier: MIT
// The commands that erase the chip. Whatever can go wrong before is looked at before.
#include <QDateTime>
#include <QDir>
#include <QFileInfo>

#include "base/text.h"
#include "cli/chip_memories.h"
#include "cli/command.h"
#include "cli/image_files.h"
#include "cli/programming.h"
#include "cli/write_plan.h"
#include "device/fuse_encoding.h"

namespace tolvex {

using namespace Qt::StringLiterals;

namespace {

constexpr int kUnlocked = 2;  ///< the entry of the lock list

/// The erase takes a lock against writing with it, which whoever changes one memory may not expect.
/// The lock of chips without fuses can't be read.
Status TellLock(Session& session) {
    const ChipContext& chip = session.bench.chip;
    const FuseGroup group = chip.state.device.fuseGroup;
    if (group == FuseGroup::LockOnly) {
        return {};
    }
    std::uint8_t bits = 0xFF;
    const bool entered = chip.commands.EnterProgrammingMode() == Outcome::Ok;
    const bool read = chip.commands.ReadLockFuseBits(bits) == Outcome::Ok;
    if (const Status failed =
            session.access.Judge(LeaveWithProof(chip) && entered && read,
                                 {cause::WriterSilent, Text::tr("ロックビットを読めません。")})) {
        return failed;
    }
    OptionChoice lock;
    DecodeLock(group, bits, lock);
    if (lock[OptionList::LockBit] != kUnlocked) {
        session.output.Remark(
            Text::tr("チップは書き込み禁止にロックされています。消去でロックは外れます。"
                     "必要なら後で tolvex-cli lock write を実行してください。"));
    }
    return {};
}

/// Two files in `folder` with the date in their names; none is replaced.
ImageFiles BackupFiles(const QString& folder, const CurrentDevice& device) {
    const QString stem =
        QDir(folder).filePath(PartNumber(device.name) + u'-' +
                              QDateTime::currentDateTime().toString(u"yyyyMMdd-HHmmss"_s));
    QString base = stem;
    for (int again = 2; QFileInfo::exists(base + u".hex"_s) || QFileInfo::exists(base + u".eep"_s);
         ++again) {
        base = stem + u"-%1"_s.arg(again);
    }
    return {.code = base + u".hex"_s, .data = base + u".eep"_s};
}

Status Backup(Session& session, const QString& folder, const MemoryImages& images) {
    const ImageFiles files = BackupFiles(folder, session.access.Device());
    if (const Status failed = SaveImages(session, files, images, false)) {
        return failed;
    }
    session.output.Report(report::Backup, files.Json());
    return {};
}

/// What is to be kept or saved is read twice: once it is erased, nothing else knows it.
Status ReadTwice(Session& session, Memories memories, MemoryImages& images) {
    MemoryImages again;
    for (MemoryImages* reading : {&images, &again}) {
        if (const Status failed = session.access.ReadMemories(memories, *reading)) {
            return failed;
        }
    }
    return session.access.Judge(
        Compare(session.access.Device(), memories, images, again).isEmpty(),
        {cause::Unstable, Text::tr("二度読んだ内容が違います。チップには何も書いていません。")});
}

/// The chip is proven; what is to be kept goes into `images`.
Status Prepare(Session& session, const Precautions& precautions, MemoryImages& images) {
    if (const Status failed = precautions.kept ? TellLock(session) : Status{}) {
        return failed;
    }
    if (!precautions.backup && !precautions.kept) {
        return {};
    }
    MemoryImages chip;
    const Memories read = precautions.backup ? Memories{} : *precautions.kept;
    if (const Status failed = ReadTwice(session, read, chip)) {
        return failed;
    }
    if (precautions.kept && precautions.kept->flash) {
        images.flash = chip.flash;
    }
    if (precautions.kept && precautions.kept->eeprom) {
        images.eeprom = chip.eeprom;
    }
    return precautions.backup ? Backup(session, *precautions.backup, chip) : Status{};
}

void TellPlan(Session& session, const WritePlan& plan, const std::optional<Memories>& whole) {
    const double seconds =
        (session.Elapsed() + ProgramTime(plan, session.access.Device(), whole)).count();
    session.output.Tell(Text::tr("消去して書き込みます: Flash %1, EEPROM %2, 全体で %3 秒以上")
                            .arg(WordCount(plan.flashWords), ByteCount(plan.eepromBytes))
                            .arg(seconds, 0, 'f', 1));
    session.output.Report(report::Plan, QJsonObject{{u"flashWords"_s, plan.flashWords},
                                                    {u"eepromBytes"_s, plan.eepromBytes},
                                                    {u"seconds"_s, seconds}});
}

Status CompareWhole(Session& session, Memories memories, const MemoryImages& images) {
    MemoryImages chip;
    if (const Status failed = session.access.ReadMemories(memories, chip)) {
        return failed;
    }
    return session.access.JudgeDifferences(
        Compare(session.access.Device(), memories, images, chip));
}

/// The whole chip, or what of it is not kept anyway, holds the images already. A locked chip can't
/// be read and counts as different.
Result<bool> IsThere(Session& session, const std::optional<Memories>& kept,
                     const MemoryImages& images) {
    if (session.access.Locked()) {
        return false;
    }
    const Memories compared =
        kept ? Memories{.flash = !kept->flash, .eeprom = !kept->eeprom} : Memories{};
    MemoryImages chip;
    if (const Status failed = session.access.ReadMemories(compared, chip)) {
        return *failed;
    }
    const bool there = Compare(session.access.Device(), compared, images, chip).isEmpty();
    if (there) {
        session.output.Tell(
            Text::tr("チップの内容は既にファイルのとおりです。何も書いていません。"));
        session.output.Report(report::Written, QJsonObject());
    }
    return there;
}

/// What is compared to its end. When the Flash keeps its content, only the EEPROM can show that the
/// chip was erased.
Result<std::optional<Memories>> ChooseWhole(const Call& call, const std::optional<Memories>& kept) {
    if (const auto verify = call.Value("verify")) {
        return verify == u"all" ? Result<std::optional<Memories>>(Memories{})
                                : Failure{cause::WrongUse,
                                          Text::tr("--verify は all だけです: %1").arg(*verify)};
    }
    return kept && kept->flash ? std::optional(Memories{.flash = false}) : std::nullopt;
}

/// The memory that keeps its content instead of taking a file's.
Result<std::optional<Memories>> ChooseKept(const Call& call, ImageFiles& files) {
    if (call.Has("keep-eeprom")) {
        if (call.arguments.size() > 1 || !files.memories.flash) {
            return Failure{cause::WrongUse,
                           Text::tr("--keep-eeprom と EEPROM のファイルは一緒に指定できません。")};
        }
        files.data.reset();
        files.foundData = false;
        return std::optional(Memories{.flash = false});
    }
    return files.memories.Both() ? std::nullopt
                                 : std::optional(Memories{.flash = !files.memories.flash,
                                                          .eeprom = !files.memories.eeprom});
}

Status ProgramFiles(Session& session, const Call& call) {
    Precautions precautions{.force = call.Has("force"), .backup = call.Value("backup")};
    const auto chosen = ChooseImageFiles(session, call, FileUse::Read);
    if (!chosen) {
        return chosen.Failed();
    }
    ImageFiles files = *chosen;
    const auto kept = ChooseKept(call, files);
    if (!kept) {
        return kept.Failed();
    }
    precautions.kept = *kept;
    const auto whole = ChooseWhole(call, *kept);
    if (!whole) {
        return whole.Failed();
    }
    const auto loaded = LoadFiles(session, files, precautions.force);
    if (!loaded) {
        return loaded.Failed();
    }
    if (const Status failed = ProveChip(session, precautions)) {
        return failed;
    }
    const auto there =
        call.Has("if-different") ? IsThere(session, *kept, loaded->images) : Result<bool>(false);
    if (!there) {
        return there.Failed();
    }
    if (!*there) {
        MemoryImages images = loaded->images;
        if (const Status failed = Prepare(session, precautions, images)) {
            return failed;
        }
        if (const Status failed = WriteChip(session, images, *whole)) {
            return failed;
        }
    }
    return session.access.Judge(
        loaded->lossless,
        {cause::PartlyWritten, Text::tr("ファイルのデータの一部は書き込めませんでした。")});
}

}  // namespace

Status ProveChip(Session& session, const Precautions& precautions) {
    ChipAccess& access = session.access;
    if (precautions.backup && !QDir().mkpath(*precautions.backup)) {
        return Failure{cause::FileNotWritten,
                       Text::tr("フォルダを作れません: %1").arg(*precautions.backup)};
    }
    if (const Status failed = access.DetectChip()) {
        return failed;
    }
    const bool mustRead = precautions.kept || precautions.backup;
    if (!mustRead && access.Locked()) {
        session.output.Remark(Text::tr("チップはロックされています。消去してロックを解除します。"));
        session.bench.chip.tolerateMismatch = precautions.force;
        return {};
    }
    return access.RequireReadablePart(precautions.force);
}

Status WriteChip(Session& session, const MemoryImages& images,
                 const std::optional<Memories>& whole) {
    session.bench.state.images = images;
    TellPlan(session, PlanFor(session.bench.state), whole);
    const SequenceResult result = session.access.Run(ProgramSequence);
    const bool erased = result.erase && result.erase->succeeded && result.program;
    if (erased && result.program->nothingToWrite) {
        return CompareWhole(session, {}, images);
    }
    const VerifyResult verify = erased ? result.program->verify : VerifyResult{};
    const bool confirmed = erased && result.program->flashWritten &&
                           result.program->eepromWritten && verify.flashCompared &&
                           verify.eepromCompared;
    if (const Status failed = session.access.Judge(
            confirmed, {cause::CommandRefused, Text::tr("書き込みを確認できませんでした。")})) {
        return failed;
    }
    if (const Status failed = session.access.JudgeDifferences(verify.differences)) {
        return failed;
    }
    return whole ? CompareWhole(session, *whole, images) : Status{};
}

Status Program(Session& session, const Call& call) {
    const Status end = ProgramFiles(session, call);
    session.output.Report(report::Verified, !end);
    return end;
}

Status Erase(Session& session, const Call& call) {
    const Precautions precautions{.force = call.Has("force"), .backup = call.Value("backup")};
    if (const Status failed = ProveChip(session, precautions)) {
        return failed;
    }
    MemoryImages none;
    if (const Status failed = Prepare(session, precautions, none)) {
        return failed;
    }
    const double seconds = (session.Elapsed() + EraseTime()).count();
    session.output.Tell(
        Text::tr("チップ全体を消去します: 全体で %1 秒以上").arg(seconds, 0, 'f', 1));
    session.output.Report(report::Plan, QJsonObject{{u"seconds"_s, seconds}});
    const bool locked = session.access.Locked();
    const SequenceResult result = session.access.Run(EraseSequence);
    const bool erased = result.erase && result.erase->succeeded;
    session.output.Report(report::Erased, erased);
    if (const Status failed = session.access.Judge(
            erased, {cause::CommandRefused, Text::tr("消去を確認できませんでした。")})) {
        return failed;
    }
    // It tells its part only now.
    return locked ? session.access.DetectPart(call.Has("force")) : Status{};
}

}  // namespace tolvex
