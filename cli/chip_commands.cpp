// SPDX-License-Identifier: MIT
// The commands that look at the chip and change nothing in it.
#include <QFileInfo>
#include <algorithm>

#include "cli/command.h"
#include "cli/image_files.h"

namespace tolvex {

using namespace Qt::StringLiterals;

namespace {

struct VerdictRow {
    ChipVerdict verdict;
    QStringView key;
    QStringView text;
};

constexpr VerdictRow kVerdicts[] = {
    {ChipVerdict::Accepted, u"mismatch", u"不一致"},  // of the device's size, but another part
    {ChipVerdict::Protected, u"locked", u"ロックされている"},
    {ChipVerdict::EmptySocket, u"emptySocket", u"チップなし"},
    {ChipVerdict::Mismatch, u"mismatch", u"不一致"},
};

/// Reads what was asked for into `images`. The operation reads both memories at once.
int ReadChip(Session& session, Memories memories, bool force, MemoryImages& images) {
    if (!memories.Both()) {
        const int status = session.DetectPart(force);
        return status == kDone
                   ? ReadMemory(session, memories.flash ? Memory::Flash : Memory::Eeprom, images)
                   : status;
    }
    if (const int status = session.RequirePort()) {
        return status;
    }
    if (force) {
        session.Bench().check.TolerateMismatch();
    }
    const ChainResult result = session.RunChain(u"Read");
    images = session.Bench().state.images;
    const int status = session.Judge(result.read && result.read->Complete(), cause::WriterSilent,
                                     u"チップを読めません。"_s);
    return status == kDone ? session.RequirePart(force) : status;
}

/// The operation compares both memories whole.
int VerifyChip(Session& session, const MemoryImages& images, bool force) {
    if (const int status = session.RequirePort()) {
        return status;
    }
    session.Bench().state.images = images;
    if (force) {
        session.Bench().check.TolerateMismatch();
    }
    const VerifyResult result = session.RunChain(u"Verify").verify.value_or(VerifyResult{});
    if (const int status = session.Judge(result.flashCompared && result.eepromCompared,
                                         cause::WriterSilent, u"ベリファイできませんでした。"_s)) {
        return status;
    }
    const int status = session.RequirePart(force);
    return status == kDone ? TellDifferences(session, result.differences) : status;
}

}  // namespace

int Detect(Session& session, const Call&) {
    if (const int status = session.DetectChip()) {
        return status;
    }
    const bool match = session.Reading().signature == session.Device().signature;
    const QString part = PartOf(session.Reading().signature);
    const auto& row =
        *std::ranges::find(kVerdicts, session.Reading().verdict, &VerdictRow::verdict);
    const WriterIdentity& writer = session.Identity();
    session.Print(u"ライタ: %1"_s.arg(writer.identifier));
    session.Print(u"ファームウエア: %1"_s.arg(writer.softwareVersion));
    session.Print(u"ハードウエア: %1"_s.arg(writer.hardwareVersion));
    session.Print(
        u"シグネチャ: %1 (%2)"_s.arg(session.Signature(), part.isEmpty() ? u"?"_s : part));
    session.Print(
        u"デバイス: %1 (%2)"_s.arg(session.Device().name, match ? u"一致"_s : row.text.toString()));
    session.Report()[u"chip"_s] = match ? u"match"_s : row.key.toString();
    return session.DetectedPart();
}

int Verify(Session& session, const Call& call) {
    const bool force = call.Has("force");
    ImageFiles files;
    LoadedFiles loaded;
    if (const int status = ImageFiles::From(session, call, ImageFiles::Use::Read, files)) {
        return status;
    }
    if (const int status = LoadFiles(session, files, force, loaded)) {
        return status;
    }
    int status = kDone;
    if (files.memories.Both()) {
        status = VerifyChip(session, loaded.images, force);
    } else {
        MemoryImages chip;
        status = ReadChip(session, files.memories, force, chip);
        if (status == kDone) {
            status = TellDifferences(
                session, Compare(session.Device(), files.memories, loaded.images, chip));
        }
    }
    session.Report()[u"verified"_s] = status == kDone && loaded.lossless;
    return status == kDone ? session.Judge(loaded.lossless, cause::PartlyWritten,
                                           u"ファイルの一部は比べられません。"_s)
                           : status;
}

int Read(Session& session, const Call& call) {
    ImageFiles files;
    MemoryImages images;
    if (const int status = ImageFiles::From(session, call, ImageFiles::Use::Write, files)) {
        return status;
    }
    for (const QString& path : {files.code, files.data}) {
        if (QFileInfo(path).isFile() && !call.Has("overwrite")) {
            return session.Fail(
                cause::FileExists,
                u"ファイルが既にあります。--overwrite で置き換えます: %1"_s.arg(path));
        }
    }
    if (const int status = ReadChip(session, files.memories, call.Has("force"), images)) {
        return status;
    }
    session.Report()[u"files"_s] = QJsonObject{{u"code"_s, files.code}, {u"data"_s, files.data}};
    return SaveImages(session, files, images);
}

}  // namespace tolvex
