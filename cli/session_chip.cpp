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

ChainResult Session::RunChain(QStringView key, bool force) {
    if (force) {
        bench_.check.TolerateMismatch();
    }
    ChainResult result = bench_.toolbar.Click(key);
    detection_ = result.detection;
    // The operations go by the size code alone: a signature that was proven whole stays. The
    // reading before an erase is judged by nobody.
    const bool proven = reading_.signature == Device().signature;
    for (const ChipReading& reading : {result.program ? result.program->chip : ChipReading{},
                                       result.read ? result.read->chip : ChipReading{},
                                       result.verify ? result.verify->chip : ChipReading{}}) {
        if (reading.verdict != ChipVerdict::NoReply && !(proven && reading.passed)) {
            reading_ = reading;
        }
    }
    return result;
}

LockFuseResult Session::RunFuses(LockFuseResult (LockFuseBits::*operation)()) {
    LockFuseResult result = (bench_.lockFuse.*operation)();
    detection_ = result.detection;
    reading_ = result.chip;
    return result;
}

int Session::DetectChip() {
    if (const int status = RequirePort()) {
        return status;
    }
    detection_ = bench_.detection.WriterCheck();
    reading_ = {};
    if (detection_) {
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
    ErrorFlag flag;
    chip_.EnterProgrammingMode(flag);
    chip_.ReadSignature(look.signature, flag);
    chip_.LeaveProgrammingMode(flag);
    if (flag.Failed()) {
        return {};
    }
    if (look.signature == Device().signature) {
        look.verdict = ChipVerdict::Accepted;
        look.passed = true;
        return look;
    }
    bench_.state.errorFlag.Clear();
    return bench_.check.CheckDevice();
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
    const bool readable = verdict == ChipVerdict::Accepted || verdict == ChipVerdict::Mismatch;
    return readable ? RequirePart(force) : FailReading();
}

int Session::RequirePart(bool force) {
    if (reading_.signature == Device().signature) {
        return kDone;
    }
    const QString part = PartOf(reading_.signature);
    const QString found = part.isEmpty() ? u"知らない部品"_s : part;
    const QString text = u"ソケットのチップは %1 (%2) で、%3 ではありません。"_s.arg(
        found, Signature(), PartNumber(Device().name));
    if (!force) {
        const QString hint = u"--device %1 で指定してください。"_s.arg(part);
        return Fail(cause::WrongChip, part.isEmpty() ? text : text + hint);
    }
    Remark(text + u"続けます。"_s);
    bench_.check.TolerateMismatch();
    return kDone;
}

int Session::FailReading() {
    switch (reading_.verdict) {
        case ChipVerdict::Protected:
            return Fail(cause::Locked, u"チップがロックされています。"_s);
        case ChipVerdict::EmptySocket:
            return Fail(cause::EmptySocket, u"ソケットにチップがありません。"_s);
        case ChipVerdict::NoReply:
            return Fail(cause::WriterSilent, u"シグネチャを読めません。"_s);
        case ChipVerdict::Accepted:
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
    using Failure = ChipRecord::Failure;
    if (success) {
        return kDone;
    }
    if (port_.Stopped()) {
        return kSignalled;
    }
    if (port_.OpenFailed()) {
        return FailOpening();
    }
    if (port_.Lost()) {
        return Fail(cause::LineLost, u"ライタとの接続が切れました: %1"_s.arg(PortName()));
    }
    const Failure failure = chip_.FirstFailure();
    const bool refused = failure == Failure::Refused;
    const Cause why = refused ? cause::CommandRefused : cause::WriterSilent;
    if (!detection_.found) {
        return Fail(why, u"ライタが見つかりません: %1"_s.arg(PortName()));
    }
    if (failure != Failure::None) {
        return Fail(
            why,
            (refused ? u"ライタがコマンドを拒否しました。"_s : u"ライタが応答しません。"_s) + text);
    }
    return InOrder([&] { return reading_.passed ? int{kDone} : FailReading(); },
                   [&] { return Fail(cause, text); });
}

int Session::ReadMemories(Memories memories, MemoryImages& images) {
    const bool read = tolvex::ReadMemories(chip_, person_, Device(), memories, images);
    return Judge(read, cause::WriterSilent, u"チップを読めません。"_s);
}

int Session::JudgeDifferences(const QList<VerifyResult::Difference>& differences) {
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
