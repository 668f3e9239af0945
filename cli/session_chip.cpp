// SPDX-License-Identifier: MIT
// What a session does with the chip, and what it makes of the outcome.
#include <QJsonArray>

#include "cli/session.h"

namespace tolvex {

using namespace Qt::StringLiterals;

namespace {

constexpr auto kFullFirmware = u"3.9";

}  // namespace

QString Session::Signature() const {
    const auto& [family, size, vendor] = reading_.signature;
    return reading_.verdict == ChipVerdict::NoReply
               ? QString()
               : u"%1:%2:%3"_s.arg(HexByte(vendor), HexByte(size), HexByte(family));
}

SequenceResult Session::Run(SequenceResult (*sequence)(Workbench&), bool force) {
    bench_.chip.tolerateMismatch = bench_.chip.tolerateMismatch || force;
    const SequenceResult result = chip_.MaySend() ? sequence(bench_) : SequenceResult{};
    detection_ = result.detection;
    // The operations go by the size code alone: a signature that was proven whole stays. The
    // reading before an erase is judged by nobody.
    const bool proven = reading_.signature == Device().signature;
    for (const ChipReading& reading : {result.program ? result.program->chip : ChipReading{},
                                       result.read ? result.read->chip : ChipReading{},
                                       result.verify ? result.verify->chip : ChipReading{}}) {
        if (reading.verdict != ChipVerdict::NoReply && !(proven && reading.Passed())) {
            reading_ = reading;
        }
    }
    return result;
}

LockFuseResult Session::ReadLockFuse() {
    return Keep(chip_.MaySend() ? cmdFuseRead_Click(bench_.chip) : LockFuseResult{});
}

LockFuseResult Session::WriteLockFuse(LockFusePart part) {
    return Keep(chip_.MaySend() ? tolvex::WriteLockFuse(bench_.chip, part) : LockFuseResult{});
}

LockFuseResult Session::Keep(const LockFuseResult& result) {
    detection_ = result.detection;
    reading_ = result.chip;
    return result;
}

bool Session::FindWriter() {
    detection_ = chip_.MaySend() ? WriterCheck(bench_.chip) : DetectionResult{};
    return static_cast<bool>(detection_);
}

int Session::DetectChip() {
    if (const int status = RequirePort()) {
        return status;
    }
    reading_ = {};
    if (FindWriter()) {
        TellFirmware();
        reading_ = LookAtChip();
    }
    return Judge(reading_.verdict != ChipVerdict::NoReply, cause::WriterSilent,
                 u"シグネチャを読めません。"_s);
}

/// The chosen chip is known by one look. Only of another reading does the operations' own check
/// judge, which gives the chip a second to settle and tells what it found.
ChipReading Session::LookAtChip() {
    ChipReading look;
    const Outcome outcomes[] = {bench_.commands.EnterProgrammingMode(),
                                bench_.commands.ReadSignature(look.signature),
                                bench_.commands.LeaveProgrammingMode()};
    for (const Outcome outcome : outcomes) {
        if (outcome != Outcome::Ok) {
            return {};
        }
    }
    if (look.signature == Device().signature) {
        look.verdict = ChipVerdict::Accepted;
        return look;
    }
    bench_.state.errorFlag.Clear();
    return CheckDevice(bench_.chip);
}

void Session::TellFirmware() {
    if (Device().fuseGroup == FuseGroup::BOD_CKSEL &&
        detection_.identity.softwareVersion != kFullFirmware) {
        Remark(u"ファームウエア %1 は %2 をサポートしません（3.9 が必要です）。"_s.arg(
            detection_.identity.softwareVersion, PartNumber(Device().name)));
    }
}

int Session::DetectPart(bool force) {
    return InOrder([&] { return DetectChip(); }, [&] { return DetectedPart(force); });
}

int Session::DetectedPart(bool force) {
    const ChipVerdict verdict = reading_.verdict;
    const bool unreadable = verdict == ChipVerdict::NoReply || verdict == ChipVerdict::Locked ||
                            verdict == ChipVerdict::EmptySocket;
    return unreadable ? FailReading() : RequirePart(force);
}

int Session::RequirePart(bool force) {
    if (reading_.signature == Device().signature) {
        return kDone;
    }
    const auto part = PartOf(reading_.signature);
    const QString found = part.value_or(u"知らない部品"_s);
    const QString text = u"ソケットのチップは %1 (%2) で、%3 ではありません。"_s.arg(
        found, Signature(), PartNumber(Device().name));
    if (!force) {
        return Fail(cause::WrongChip,
                    part ? text + u"--device %1 で指定してください。"_s.arg(*part) : text);
    }
    Remark(text + u"続けます。"_s);
    bench_.chip.tolerateMismatch = true;
    return kDone;
}

int Session::FailReading() {
    switch (reading_.verdict) {
        case ChipVerdict::Locked:
            return Fail(cause::Locked, u"チップがロックされています。"_s);
        case ChipVerdict::EmptySocket:
            return Fail(cause::EmptySocket, u"ソケットにチップがありません。"_s);
        case ChipVerdict::NoReply:
            return Fail(cause::WriterSilent, u"シグネチャを読めません。"_s);
        case ChipVerdict::Accepted:
        case ChipVerdict::Tolerated:
        case ChipVerdict::CommandFailed:
        case ChipVerdict::Mismatch:
            break;
    }
    return RequirePart(false);
}

int Session::FailOpening() {
    const PortFacts facts = Inspect(PortPath());
    const Cause present = facts.permitted ? cause::PortBusy : cause::PortForbidden;
    return Fail(facts.exists ? present : cause::PortMissing,
                u"ポート %1 を開けません: %2"_s.arg(PortName(), PortError()));
}

int Session::Judge(bool success, Cause cause, const QString& text) {
    if (success) {
        return kDone;
    }
    if (chip_.Stopped()) {
        return kSignalled;
    }
    const auto failure = chip_.FirstFailure();
    if (chip_.LineLost() || failure == Outcome::LineLost) {
        return Fail(cause::LineLost, u"ライタとの接続が切れました: %1"_s.arg(PortName()));
    }
    if (OpenFailed()) {
        return FailOpening();
    }
    const bool refused = failure == Outcome::WrongReply;
    const Cause why = refused ? cause::CommandRefused : cause::WriterSilent;
    if (!detection_) {
        return Fail(why, u"ライタが見つかりません: %1"_s.arg(PortName()));
    }
    if (failure) {
        return Fail(
            why,
            (refused ? u"ライタがコマンドを拒否しました。"_s : u"ライタが応答しません。"_s) + text);
    }
    return InOrder([&] { return reading_.Passed() ? int{kDone} : FailReading(); },
                   [&] { return Fail(cause, text); });
}

int Session::ReadMemories(Memories memories, MemoryImages& images) {
    const bool read = tolvex::ReadMemories(bench_.chip, memories, images);
    return Judge(read, cause::WriterSilent, u"チップを読めません。"_s);
}

int Session::JudgeDifferences(const QList<Difference>& differences) {
    QJsonArray array;
    for (const auto& [flash, address, expected, chip] : differences) {
        const auto hex = flash ? HexWord4 : HexByte;
        Print(u"%1 %2: ファイル %3, チップ %4"_s.arg(flash ? u"Flash "_s : u"EEPROM"_s,
                                                     HexWord4(address), hex(expected), hex(chip)));
        array << QJsonObject{{u"memory"_s, flash ? u"flash"_s : u"eeprom"_s},
                             {u"address"_s, address},
                             {u"expected"_s, expected},
                             {u"chip"_s, chip}};
    }
    report_[u"differences"_s] = array;
    return Judge(differences.isEmpty(), cause::Differs,
                 u"チップの内容が違います（%1 か所）。"_s.arg(differences.size()));
}

}  // namespace tolvex
