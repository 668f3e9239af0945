// SPDX-License-Identifier: MIT
// The commands that look at the chip and change nothing in it.
#include <QFileInfo>

#include "cli/command.h"
#include "cli/image_files.h"

namespace tolvex {

using namespace Qt::StringLiterals;

namespace {

/// Reads what was asked for into `images`. The operation reads both memories at once.
int ReadChip(Session& session, Memories memories, bool force, MemoryImages& images) {
    if (!memories.Both()) {
        return InOrder([&] { return session.DetectPart(force); },
                       [&] { return session.ReadMemories(memories, images); });
    }
    const SequenceResult result = session.Run(ReadSequence, force);
    images = session.Bench().state.images;
    return InOrder(
        [&] {
            return session.Judge(result.read && result.read->Complete(), cause::WriterSilent,
                                 u"チップを読めません。"_s);
        },
        [&] { return session.RequirePart(force); });
}

/// The operation compares both memories whole.
int VerifyChip(Session& session, Memories memories, bool force, const MemoryImages& images) {
    if (!memories.Both()) {
        MemoryImages chip;
        return InOrder(
            [&] { return ReadChip(session, memories, force, chip); },
            [&] {
                return session.JudgeDifferences(Compare(session.Device(), memories, images, chip));
            });
    }
    session.Bench().state.images = images;
    const VerifyResult result = session.Run(VerifySequence, force).verify.value_or(VerifyResult{});
    return InOrder(
        [&] {
            return session.Judge(result.flashCompared && result.eepromCompared, cause::WriterSilent,
                                 u"ベリファイできませんでした。"_s);
        },
        [&] { return session.RequirePart(force); },
        [&] { return session.JudgeDifferences(result.differences); });
}

}  // namespace

int Detect(Session& session, const Call&) {
    if (const int status = session.DetectChip()) {
        return status;
    }
    const bool match = session.Reading().signature == session.Device().signature;
    const auto part = PartOf(session.Reading().signature);
    const WriterIdentity& writer = session.Identity();
    session.Print(u"ライタ: %1"_s.arg(writer.identifier));
    session.Print(u"ファームウエア: %1"_s.arg(writer.softwareVersion));
    session.Print(u"ハードウエア: %1"_s.arg(writer.hardwareVersion));
    session.Print(u"シグネチャ: %1 (%2)"_s.arg(session.Signature(), part.value_or(u"?"_s)));
    session.Print(
        u"デバイス: %1 (%2)"_s.arg(session.Device().name, match ? u"一致"_s : u"不一致"_s));
    return session.DetectedPart();
}

int Verify(Session& session, const Call& call) {
    const bool force = call.Has("force");
    ImageFiles files;
    LoadedFiles loaded;
    const int status =
        InOrder([&] { return ImageFiles::From(session, call, ImageFiles::Use::Read, files); },
                [&] { return LoadFiles(session, files, force, loaded); },
                [&] { return session.RequirePort(); },
                [&] { return VerifyChip(session, files.memories, force, loaded.images); },
                [&] {
                    return session.Judge(loaded.lossless, cause::PartlyWritten,
                                         u"ファイルの一部は比べられません。"_s);
                });
    session.Report()[u"verified"_s] = status == kDone;
    return status;
}

int Read(Session& session, const Call& call) {
    ImageFiles files;
    MemoryImages images;
    const auto replacesNothing = [&] {
        for (const QString& path : {files.code, files.data}) {
            if (QFileInfo(path).isFile() && !call.Has("overwrite")) {
                return session.Fail(
                    cause::FileExists,
                    u"ファイルが既にあります。--overwrite で置き換えます: %1"_s.arg(path));
            }
        }
        return int{kDone};
    };
    return InOrder([&] { return ImageFiles::From(session, call, ImageFiles::Use::Write, files); },
                   replacesNothing, [&] { return session.RequirePort(); },
                   [&] { return ReadChip(session, files.memories, call.Has("force"), images); },
                   [&] {
                       session.Report()[u"files"_s] = files.Json();
                       return SaveImages(session, files, images);
                   });
}

}  // namespace tolvex
