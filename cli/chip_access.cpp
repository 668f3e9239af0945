// SPDX-License-Identifier: MIT
#include "cli/chip_access.h"

#include "base/text.h"
#include "cli/chip_memories.h"

namespace tolvex {

using namespace Qt::StringLiterals;

std::optional<QString> ChipAccess::Signature() const {
    if (reading_.verdict == ChipVerdict::NoReply) {
        return std::nullopt;
    }
    const auto& [family, size, vendor] = reading_.signature;
    return u"%1:%2:%3"_s.arg(HexByte(vendor), HexByte(size), HexByte(family));
}

Status ChipAccess::RequirePort() const {
    if (!p_.port) {
        QStringList lines = {Text::tr("ポートが選ばれていません。--port で指定してください。")};
        for (const ComPort& port : p_.around.comPorts.Attached()) {
            lines
                << u"COM%1  %2  %3"_s.arg(port.number).arg(port.devicePath, port.adapter).trimmed();
        }
        return Failure{cause::NoPort, lines.join(u"\n  "_s)};
    }
    return p_.openTrace();
}

bool ChipAccess::FindWriter() {
    detection_ = p_.record.MaySend() ? WriterCheck(p_.bench.chip) : DetectionResult{};
    return static_cast<bool>(detection_);
}

Status ChipAccess::DetectChip() {
    if (const Status failed = RequirePort()) {
        return failed;
    }
    reading_ = {};
    p_.bench.chip.provenSignature.reset();
    if (FindWriter()) {
        TellFirmware();
        reading_ = LookAtChip();
        Prove();
    }
    return Judge(reading_.verdict != ChipVerdict::NoReply,
                 {cause::WriterSilent, Text::tr("シグネチャを読めません。")});
}

/// The selected chip, and a locked one, is known by one look. Any other gets a second one, with
/// time to settle.
ChipReading ChipAccess::LookAtChip() {
    const ChipReading look = Look(0);
    const bool known = look.verdict == ChipVerdict::Accepted || look.signature == kLockedSignature;
    return known || look.verdict == ChipVerdict::NoReply ? look : Look(1);
}

std::optional<tolvex::Signature> ChipAccess::Peek() {
    const ChipReading look = Look(0);
    return look.verdict == ChipVerdict::NoReply ? std::nullopt : std::optional(look.signature);
}

ChipReading ChipAccess::Look(double settleSeconds) {
    ChipReading look;
    const bool entered = p_.bench.commands.EnterProgrammingMode() == Outcome::Ok;
    p_.bench.connection.WaitSeconds(settleSeconds);
    const bool read = p_.bench.commands.ReadSignature(look.signature) == Outcome::Ok;
    const bool left = p_.bench.commands.LeaveProgrammingMode() == Outcome::Ok;
    if (!entered || !read || !left) {
        return {};
    }
    const std::uint8_t sizeCode = look.signature[1];
    look.verdict = look.signature == Device().signature ? ChipVerdict::Accepted
                   : sizeCode <= kLockedSignature[1]    ? ChipVerdict::Locked
                   : sizeCode == kErased                ? ChipVerdict::EmptySocket
                                                        : ChipVerdict::Mismatch;
    return look;
}

/// From here on every operation proves that it works on the chip that was found.
void ChipAccess::Prove() {
    ChipContext& chip = p_.bench.chip;
    const ChipVerdict verdict = reading_.verdict;
    const bool answers = verdict != ChipVerdict::NoReply && verdict != ChipVerdict::EmptySocket;
    if (answers && (verdict != ChipVerdict::Locked || Locked())) {
        chip.provenSignature = reading_.signature;
        chip.onProof = [this, &chip](const auto& answer, bool same) {
            p_.record.NoteProof(same);
            if (chip.provenSignature == kLockedSignature && PartOf(answer)) {
                reading_ = {same ? ChipVerdict::Accepted : ChipVerdict::Mismatch, answer};
                chip.provenSignature = answer;  // from its erase on it is known
            }
        };
    }
}

void ChipAccess::TellFirmware() {
    const QString& version = detection_.softwareVersion;
    if (Device().fuseGroup == FuseGroup::BOD_CKSEL && version != kFullFirmware) {
        p_.output.Remark(Text::tr("ファームウエア %1 は %2 をサポートしません（%3 が必要です）。")
                             .arg(version, PartNumber(Device().name), kFullFirmware));
    }
}

Status ChipAccess::RequireReadable() const {
    switch (reading_.verdict) {
        case ChipVerdict::Locked:
            if (!Locked()) {
                return Failure{cause::NoContact,
                               Text::tr("チップに接触していません（シグネチャ %1）。"
                                        "ソケットとチップの向きを確認してください。")
                                   .arg(*Signature())};
            }
            return Failure{cause::Locked, Text::tr("チップがロックされています。")};
        case ChipVerdict::EmptySocket:
            return Failure{cause::EmptySocket, Text::tr("ソケットにチップがありません。")};
        case ChipVerdict::NoReply:
            return Failure{cause::WriterSilent, Text::tr("シグネチャを読めません。")};
        case ChipVerdict::Accepted:
        case ChipVerdict::Tolerated:
        case ChipVerdict::CommandFailed:
        case ChipVerdict::Mismatch:
        case ChipVerdict::ContactLost:
            break;
    }
    return {};
}

Status ChipAccess::RequireReadablePart(bool force) {
    if (const Status failed = RequireReadable()) {
        return failed;
    }
    return RequirePart(force);
}

Status ChipAccess::RequirePart(bool force) {
    if (reading_.signature == Device().signature) {
        return {};
    }
    const auto part = PartOf(reading_.signature);
    const QString text = Text::tr("ソケットのチップは %1 (%2) で、%3 ではありません。")
                             .arg(part.value_or(Text::tr("知らない部品")),
                                  Signature().value_or(QString()), PartNumber(Device().name));
    if (!force) {
        return Failure{
            cause::WrongChip,
            part ? Sentences(text, Text::tr("--device %1 で指定してください。").arg(*part)) : text};
    }
    p_.output.Remark(Sentences(text, Text::tr("続けます。")));
    p_.bench.chip.tolerateMismatch = true;
    return {};
}

Status ChipAccess::DetectPart(bool force) {
    if (const Status failed = DetectChip()) {
        return failed;
    }
    return RequireReadablePart(force);
}

SequenceResult ChipAccess::Run(SequenceResult (*sequence)(Workbench&), bool force) {
    if (force) {
        p_.bench.chip.tolerateMismatch = true;
    }
    const SequenceResult result = p_.record.MaySend() ? sequence(p_.bench) : SequenceResult{};
    detection_ = result.detection;
    for (const ChipReading& reading : {result.program ? result.program->chip : ChipReading{},
                                       result.read ? result.read->chip : ChipReading{},
                                       result.verify ? result.verify->chip : ChipReading{}}) {
        if (reading.verdict != ChipVerdict::NoReply) {
            reading_ = reading;
        }
    }
    return result;
}

LockFuseResult ChipAccess::ReadLockFuse() {
    return Keep(p_.record.MaySend() ? cmdFuseRead_Click(p_.bench.chip) : LockFuseResult{});
}

LockFuseResult ChipAccess::WriteLockFuse(LockFusePart part) {
    return Keep(p_.record.MaySend() ? tolvex::WriteLockFuse(p_.bench.chip, part)
                                    : LockFuseResult{});
}

LockFuseResult ChipAccess::Keep(const LockFuseResult& result) {
    detection_ = result.detection;
    reading_ = result.chip;
    return result;
}

Status ChipAccess::ReadMemories(Memories memories, MemoryImages& images) {
    return Judge(tolvex::ReadMemories(p_.bench.chip, memories, images),
                 {cause::WriterSilent, Text::tr("チップを読めません。")});
}

Failure ChipAccess::OpeningFailure() const {
    const PortFacts facts = p_.around.inspectPort(p_.port->path);
    const Cause opened = p_.around.portBusy() ? cause::PortBusy : cause::NoSerialPort;
    const Cause why = !facts.exists      ? cause::PortMissing
                      : !facts.serial    ? cause::NoSerialPort
                      : !facts.permitted ? cause::PortForbidden
                                         : opened;
    return {why,
            Text::tr("ポート %1 を開けません: %2").arg(p_.port->Name(), p_.around.portError())};
}

Status ChipAccess::Judge(bool success, const Failure& otherwise) {
    if (success) {
        return {};
    }
    if (p_.record.Stopped()) {
        return Failure{cause::Interrupted, {}};
    }
    const auto failure = p_.record.FirstFailure();
    if (p_.record.LineLost() || failure == Outcome::LineLost) {
        return Failure{cause::LineLost,
                       Text::tr("ライタとの接続が切れました: %1").arg(p_.port->Name())};
    }
    if (OpenFailed()) {
        return OpeningFailure();
    }
    const bool refused = failure == Outcome::WrongReply;
    const Cause why = refused ? cause::CommandRefused : cause::WriterSilent;
    if (!detection_) {
        return Failure{why, Text::tr("ライタが見つかりません: %1").arg(p_.port->Name())};
    }
    if (failure) {
        return Failure{why, Sentences(refused ? Text::tr("ライタがコマンドを拒否しました。")
                                              : Text::tr("ライタが応答しません。"),
                                      otherwise.text)};
    }
    if (p_.record.ContactLost() && reading_.verdict != ChipVerdict::Mismatch) {
        return Failure{cause::ContactLost,
                       Text::tr("途中でチップとの接触が失われたか、チップが替わりました。"
                                "ソケットとケーブルを確認してください。")};
    }
    if (!reading_.Passed()) {
        if (const Status failed = RequireReadablePart(false)) {
            return failed;
        }
    }
    return otherwise;
}

Status ChipAccess::JudgeDifferences(const QList<Difference>& differences) {
    for (const auto& [flash, address, expected, chip] : differences) {
        const auto hex = flash ? HexWord4 : HexByte;
        p_.output.Print(Text::tr("%1 %2: ファイル %3, チップ %4")
                            .arg(flash ? u"Flash "_s : u"EEPROM"_s, HexWord4(address),
                                 hex(expected), hex(chip)));
    }
    p_.output.Report(report::Differences, DifferencesJson(differences));
    return Judge(differences.isEmpty(),
                 {cause::Differs, Text::tr("チップの内容が違います（%n か所）。", nullptr,
                                           static_cast<int>(differences.size()))});
}

}  // namespace tolvex
