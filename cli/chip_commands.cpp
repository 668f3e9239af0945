// SPDX-License-Identifier: MIT
// The commands that look at the chip and change nothing in it.
#include <QJsonArray>

#include "base/text.h"
#include "cli/chip_memories.h"
#include "cli/command.h"
#include "cli/image_files.h"

namespace tolvex {

using namespace Qt::StringLiterals;

namespace {

/// The operation reads both memories at once.
Status ReadImages(Session& session, Memories memories, bool force, MemoryImages& images) {
    ChipAccess& access = session.access;
    if (const Status failed = access.DetectPart(force)) {
        return failed;
    }
    if (!memories.Both()) {
        return access.ReadMemories(memories, images);
    }
    const SequenceResult result = access.Run(ReadSequence, force);
    images = session.bench.state.images;
    return access.Judge(result.read && result.read->Complete(),
                        {cause::WriterSilent, Text::tr("チップを読めません。")});
}

/// The operation compares both memories whole.
Status VerifyImages(Session& session, Memories memories, bool force, const MemoryImages& images) {
    ChipAccess& access = session.access;
    if (!memories.Both()) {
        MemoryImages chip;
        if (const Status failed = ReadImages(session, memories, force, chip)) {
            return failed;
        }
        return access.JudgeDifferences(Compare(access.Device(), memories, images, chip));
    }
    if (const Status failed = access.DetectPart(force)) {
        return failed;
    }
    session.bench.state.images = images;
    const VerifyResult result = access.Run(VerifySequence, force).verify.value_or(VerifyResult{});
    if (const Status failed =
            access.Judge(result.flashCompared && result.eepromCompared,
                         {cause::WriterSilent, Text::tr("ベリファイできませんでした。")})) {
        return failed;
    }
    return access.JudgeDifferences(result.differences);
}

Status VerifyFiles(Session& session, const Call& call) {
    const bool force = call.Has("force");
    const auto files = ChooseImageFiles(session, call, FileUse::Read);
    if (!files) {
        return files.Failed();
    }
    const auto loaded = LoadFiles(session, *files, force);
    if (!loaded) {
        return loaded.Failed();
    }
    if (const Status failed = session.access.RequirePort()) {
        return failed;
    }
    if (const Status failed = VerifyImages(session, files->memories, force, loaded->images)) {
        return failed;
    }
    return session.access.Judge(
        loaded->lossless, {cause::PartlyWritten, Text::tr("ファイルの一部は比べられません。")});
}

}  // namespace

Status Detect(Session& session, const Call&) {
    ChipAccess& access = session.access;
    if (const Status failed = access.DetectChip()) {
        return failed;
    }
    const bool match = access.Reading().signature == access.Device().signature;
    const QString part = PartOf(access.Reading().signature).value_or(u"?"_s);
    const DetectionResult& writer = access.Detection();
    session.output.Print(Text::tr("ライタ: %1").arg(writer.identifier));
    session.output.Print(Text::tr("ファームウエア: %1").arg(writer.softwareVersion));
    session.output.Print(Text::tr("ハードウエア: %1").arg(writer.hardwareVersion));
    session.output.Print(Text::tr("シグネチャ: %1 (%2)").arg(*access.Signature(), part));
    session.output.Print(Text::tr("デバイス: %1 (%2)")
                             .arg(Text::tr(access.Device().name.toUtf8()),
                                  match ? Text::tr("一致") : Text::tr("不一致")));
    return access.RequireReadablePart(false);
}

Status Verify(Session& session, const Call& call) {
    const Status end = VerifyFiles(session, call);
    session.output.Report(report::Verified, !end);
    return end;
}

Status Read(Session& session, const Call& call) {
    const auto files = ChooseImageFiles(session, call, FileUse::Write);
    if (!files) {
        return files.Failed();
    }
    const bool replace = call.Has("overwrite");
    if (const Status failed = RequirePlaces(*files, replace)) {
        return failed;
    }
    if (const Status failed = session.access.RequirePort()) {
        return failed;
    }
    MemoryImages images;
    if (const Status failed = ReadImages(session, files->memories, call.Has("force"), images)) {
        return failed;
    }
    session.output.Report(report::Files, files->Json());
    return SaveImages(session, *files, images, replace);
}

namespace {

/// How many cells that are not blank are listed.
constexpr qsizetype kListedCells = 10;

/// What the chip's memories hold, of those that --only names; both without it.
Result<Memories> ReadChosen(Session& session, const Call& call, MemoryImages& images) {
    const auto memories = ChooseMemories(call);
    if (!memories) {
        return memories.Failed();
    }
    if (const Status failed = session.access.DetectPart(call.Has("force"))) {
        return *failed;
    }
    if (const Status failed = session.access.ReadMemories(*memories, images)) {
        return *failed;
    }
    return *memories;
}

}  // namespace

Status Blank(Session& session, const Call& call) {
    MemoryImages images;
    const auto memories = ReadChosen(session, call, images);
    if (!memories) {
        return memories.Failed();
    }
    const auto cells = Compare(session.access.Device(), *memories, {}, images);
    session.output.Report(report::Blank, cells.isEmpty());
    session.output.Report(report::Differences,
                          DifferencesJson(cells.first(std::min(cells.size(), kListedCells))));
    if (cells.isEmpty()) {
        session.output.Print(Text::tr("チップは空です。"));
        return {};
    }
    for (const auto& [flash, address, expected, chip] :
         cells.first(std::min(cells.size(), kListedCells))) {
        session.output.Print(u"%1 %2: %3"_s.arg(flash ? u"Flash "_s : u"EEPROM"_s,
                                                HexWord4(address),
                                                flash ? HexWord4(chip) : HexByte(chip)));
    }
    return Failure{cause::NotBlank, Text::tr("チップは空ではありません（%n 個のセル）。", nullptr,
                                             static_cast<int>(cells.size()))};
}

Status Dump(Session& session, const Call& call) {
    MemoryImages images;
    const auto memories = ReadChosen(session, call, images);
    if (!memories) {
        return memories.Failed();
    }
    QJsonObject listings;
    for (const bool flash : {true, false}) {
        if (flash ? !memories->flash : !memories->eeprom) {
            continue;
        }
        const QString text = ShownListing(images, session.access.Device(), flash);
        listings[flash ? u"flash"_s : u"eeprom"_s] =
            QJsonArray::fromStringList(text.split(u'\n', Qt::SkipEmptyParts));
        const QString head = flash ? u"Flash\n"_s : u"\nEEPROM\n"_s;
        session.output.Put((memories->Both() ? head + text : text).toUtf8());
    }
    session.output.Report(report::Listings, listings);
    return {};
}

}  // namespace tolvex
