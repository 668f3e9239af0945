// SPDX-License-Identifier: MIT
// Finds out why a port does not work, and says how to mend it.
#include <algorithm>
#include <vector>

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

/// What is wrong with the port, and what mends it.
struct Diagnosis {
    Cause cause;
    PortRemedy remedy;
};

/// The middle one of several measurements; nothing when the writer fell silent.
std::optional<Milliseconds> RoundTrip(Session& session) {
    std::vector<Milliseconds> samples;
    for (int sample = 0; sample < kSamples; ++sample) {
        QString version;
        const auto start = session.Now();
        if (session.Bench().commands.ReadSoftwareVersion(version) != Outcome::Ok) {
            return std::nullopt;
        }
        samples.push_back(session.Now() - start);
    }
    std::ranges::nth_element(samples, samples.begin() + kSamples / 2);
    return samples[kSamples / 2];
}

/// A board that the opening of the port has reset listens to its boot loader first.
Diagnosis StartedLate(const QString& path) {
    return {cause::StartedLate,
            {u"ポートを開いたときにボードがリセットされ、起動が遅れました。"
             "ボードの RESET と GND の間に 10 µF のコンデンサを入れてください。"_s,
             u"tolvex-cli --port %1 detect"_s.arg(path)}};
}

Diagnosis Silent(const QString& path) {
    return {
        cause::WriterSilent,
        {u"ポートは開けますが、ライタが応答しません。電源とケーブルを確認してください。"
         "自作のライタなら、ファームウエアを書き込んだか、RESET に 10 µF のコンデンサがあるかも確認してください。"_s,
         u"tolvex-cli --port %1 --trace trace.txt detect"_s.arg(path)}};
}

std::optional<Diagnosis> Examine(Session& session) {
    const QString path = session.PortPath();
    const PortFacts facts = session.Inspect(path);
    if (!facts.exists) {
        return Diagnosis{cause::PortMissing, MissingPort(session.Ports(), session.PortNumber())};
    }
    if (!facts.permitted) {
        return Diagnosis{cause::PortForbidden, ForbiddenPort(path, facts)};
    }
    const bool found = session.FindWriter();
    if (session.OpenFailed()) {
        return Diagnosis{cause::PortBusy, BusyPort(path, facts, session.PortError())};
    }
    if (!found) {
        session.Bench().connection.WaitSeconds(kBoardStart);
        return session.FindWriter() ? StartedLate(path) : Silent(path);
    }
    const auto time = RoundTrip(session);
    if (!time) {
        return Silent(path);
    }
    session.Print(u"応答時間: %1 ms"_s.arg(time->count(), 0, 'f', 2));
    session.Report()[u"roundTripMilliseconds"_s] = time->count();
    return *time > kSlow ? std::optional(Diagnosis{cause::HighLatency, SlowPort(path)})
                         : std::nullopt;
}

}  // namespace

int Doctor(Session& session, const Call&) {
    if (const int status = session.RequirePort()) {
        return status;
    }
    const auto diagnosis = Examine(session);
    if (session.Stopped()) {
        return kSignalled;
    }
    int status = kDone;
    PortRemedy remedy;
    if (diagnosis) {
        remedy = diagnosis->remedy;
        status = session.Fail(diagnosis->cause, remedy.text);
    } else {
        session.Print(u"%1 は正常です。"_s.arg(session.PortName()));
        // Opening has removed one that this person may remove.
        const auto lock = session.Inspect(session.PortPath()).staleLockFile;
        if (!lock) {
            return kDone;
        }
        remedy = LockedPort(*lock);
        session.Print(remedy.text);
    }
    session.Report()[u"mend"_s] = remedy.command;
    session.Print(u"  "_s + remedy.command);
    return status;
}

}  // namespace tolvex
