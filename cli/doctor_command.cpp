// SPDX-License-Identifier: MIT
// Finds out why a port does not work, and says how to fix it.
#include <algorithm>
#include <vector>

#include "base/text.h"
#include "cli/command.h"
#include "port/port_remedy.h"

namespace tolvex {

using namespace Qt::StringLiterals;

namespace {

using Milliseconds = std::chrono::duration<double, std::milli>;

constexpr int kSamples = 15;
/// The question and its two bytes take 1.6 ms on the wire, and an adapter that polls once a
/// millisecond adds two. Adapters that hold bytes back do so for 16 ms.
constexpr Milliseconds kSlow{8};
/// Seconds after which every board has started.
constexpr double kBoardStart = 2;

/// A cause with what fixes it.
Failure FixedBy(Cause cause, const PortRemedy& remedy) {
    return {cause, remedy.text, remedy.command};
}

/// The middle one of several measurements; nothing when the writer fell silent.
std::optional<Milliseconds> RoundTrip(Session& session) {
    std::vector<Milliseconds> samples;
    for (int sample = 0; sample < kSamples; ++sample) {
        QString version;
        const auto start = session.Now();
        if (session.bench.commands.ReadSoftwareVersion(version) != Outcome::Ok) {
            return std::nullopt;
        }
        samples.push_back(session.Now() - start);
    }
    std::ranges::nth_element(samples, samples.begin() + kSamples / 2);
    return samples[kSamples / 2];
}

/// A board that the opening of the port has reset listens to its boot loader first.
Failure StartedLate(const QString& path) {
    return {cause::StartedLate,
            Text::tr("ポートを開いたときにボードがリセットされ、起動が遅れました。"
                     "ボードの RESET と GND の間に 10 µF のコンデンサを入れてください。"),
            u"tolvex-cli --port %1 detect"_s.arg(Quoted(path))};
}

Failure Silent(const QString& path) {
    return {cause::WriterSilent,
            Text::tr("ポートは開けますが、ライタが応答しません。電源とケーブルを確認してください。"
                     "自作のライタなら、ファームウエアを書き込んだか、RESET に 10 µF "
                     "のコンデンサがあるかも確認してください。"),
            u"tolvex-cli --port %1 --trace trace.txt detect"_s.arg(Quoted(path))};
}

/// It answers, but not as it should: neither silence nor a late start.
Failure Refusing(const QString& path) {
    return {cause::CommandRefused,
            Text::tr("ライタは応答しますが、コマンドを受け付けません。"
                     "ライタの種類と、もう一度試したときの通信の記録を確認してください。"),
            u"tolvex-cli --port %1 --trace trace.txt detect"_s.arg(Quoted(path))};
}

Failure NoSerialPort(const QString& path, const QString& reason) {
    return {cause::NoSerialPort,
            Text::tr("%1 はシリアルポートではないか、使えません (%2)。").arg(path, reason),
            u"tolvex-cli ports"_s};
}

/// The writer, at the second attempt where one reply was wrong or none came to the first question.
Status FindWriter(Session& session, const QString& path) {
    ChipAccess& access = session.access;
    if (access.FindWriter()) {
        return {};
    }
    const bool startedLate =
        access.Detection().outcome == Outcome::NoReply && access.Detection().identifier.isEmpty();
    if (startedLate) {
        session.bench.connection.WaitSeconds(kBoardStart);
    }
    if (access.FindWriter()) {
        return startedLate ? Status(StartedLate(path)) : Status{};
    }
    return access.Detection().outcome == Outcome::WrongReply ? Refusing(path) : Silent(path);
}

Status Examine(Session& session) {
    const auto& [number, path, byPath] = *session.Port();
    const PortFacts facts = session.Around().inspectPort(path);
    if (!facts.exists) {
        return FixedBy(cause::PortMissing, MissingPort(session.Around().comPorts, number));
    }
    if (!facts.serial) {
        return NoSerialPort(path, Text::tr("フォルダか普通のファイルです"));
    }
    if (!facts.permitted) {
        return FixedBy(cause::PortForbidden, ForbiddenPort(path, facts));
    }
    const Status lost = FindWriter(session, path);
    if (session.access.OpenFailed()) {
        const QString reason = session.Around().portError();
        return session.Around().portBusy() ? FixedBy(cause::PortBusy, BusyPort(path, facts, reason))
                                           : NoSerialPort(path, reason);
    }
    if (lost) {
        return lost;
    }
    const auto time = RoundTrip(session);
    if (!time) {
        return Silent(path);
    }
    session.output.Print(Text::tr("応答時間: %1 ms").arg(time->count(), 0, 'f', 2));
    session.output.Report(report::RoundTripMilliseconds, time->count());
    return *time > kSlow ? Status(FixedBy(cause::HighLatency, SlowPort(path))) : Status{};
}

}  // namespace

Status Doctor(Session& session, const Call&) {
    if (const Status failed = session.access.RequirePort()) {
        return failed;
    }
    if (const Status failed = Examine(session)) {
        return failed;
    }
    session.output.Print(Text::tr("%1 は正常です。").arg(session.Port()->Name()));
    // Opening has removed one that this user may remove.
    const auto lock = session.Around().inspectPort(session.Port()->path).staleLockFile;
    if (lock) {
        const PortRemedy remedy = LockedPort(*lock);
        session.output.Print(remedy.text);
        session.output.TellFix(remedy.command);
    }
    return {};
}

}  // namespace tolvex
