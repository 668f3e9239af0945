// SPDX-License-Identifier: MIT
// Finds out why a port does not work, and says how to mend it.
#include <QFileInfo>
#include <algorithm>
#include <vector>

#include "cli/command.h"
#include "platform/settings_file.h"

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
    QString text;
    QString command;  ///< only what is needed
};

/// The system lists these whether something hangs on them or not.
bool IsBoardPort(const QString& path) {
    return path.startsWith(u"/dev/ttyS"_s);
}

/// Another device that something hangs on is taken for the writer.
Diagnosis Missing(Session& session) {
    const QString path = session.PortPath();
    for (const ComPort& other : session.Ports().All()) {
        if (other.present && other.devicePath != path && !IsBoardPort(other.devicePath)) {
            const QString folder = ConfigFolder() + u"/ports"_s;
            return {cause::PortMissing,
                    u"%1 はありません。%2 があります。"_s.arg(path, other.devicePath),
                    u"mkdir -p '%1' && ln -sfn %2 '%1/com%3'"_s.arg(folder, other.devicePath)
                        .arg(session.PortNumber())};
        }
    }
    return {cause::PortMissing,
            u"%1 はありません。アダプタを挿し直し、認識されたか調べてください。"_s.arg(path),
            u"ls -l /dev/ttyUSB* /dev/ttyACM*"_s};
}

Diagnosis Forbidden(const QString& path, const PortFacts& facts) {
    const QString text = u"%1 を使う権限がありません。"_s.arg(path);
    if (facts.group.isEmpty() || facts.group == u"root"_s) {
        return {cause::PortForbidden, text, u"sudo chmod a+rw %1"_s.arg(path)};
    }
    if (facts.member) {
        return {
            cause::PortForbidden,
            text + u"グループ %1 には登録済みです。ログインし直してください。"_s.arg(facts.group),
            u"newgrp %1"_s.arg(facts.group)};
    }
    return {cause::PortForbidden, text + u"実行後、ログインし直してください。"_s,
            u"sudo usermod -aG %1 $USER"_s.arg(facts.group)};
}

Diagnosis Busy(const QString& path, const PortFacts& facts, const QString& reason) {
    if (facts.holderProcess != 0) {
        return {cause::PortBusy,
                u"%1 は %2 (PID %3) が使っています。"_s.arg(path, facts.holder)
                    .arg(facts.holderProcess),
                u"kill %1"_s.arg(facts.holderProcess)};
    }
    return {cause::PortBusy, u"%1 を開けません: %2"_s.arg(path, reason),
            u"sudo fuser -k %1"_s.arg(path)};
}

Diagnosis Slow(const QString& path) {
    const QString name =
        QFileInfo(QFileInfo(path).exists() ? QFileInfo(path).canonicalFilePath() : path).fileName();
    return {cause::HighLatency, u"応答が遅すぎます。アダプタの待ち時間を短くしてください。"_s,
            name.startsWith(u"ttyUSB"_s)
                ? u"echo 1 | sudo tee /sys/bus/usb-serial/devices/%1/latency_timer"_s.arg(name)
                : u"sudo setserial %1 low_latency"_s.arg(path)};
}

/// The middle one of several measurements; nothing when the writer fell silent.
std::optional<Milliseconds> RoundTrip(Session& session) {
    std::vector<Milliseconds> samples;
    for (int sample = 0; sample < kSamples; ++sample) {
        QString version;
        ErrorFlag flag;
        const auto start = session.Now();
        session.Bench().commands.ReadSoftwareVersion(version, flag);
        if (flag.Failed()) {
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
            u"ポートを開いたときにボードがリセットされ、起動が遅れました。"
            "ボードの RESET と GND の間に 10 µF のコンデンサを入れてください。"_s,
            u"tolvex-cli --port %1 detect"_s.arg(path)};
}

Diagnosis Silent(const QString& path) {
    return {
        cause::WriterSilent,
        u"ポートは開けますが、ライタが応答しません。電源とケーブルを確認してください。"
        "自作のライタなら、ファームウエアを書き込んだか、RESET に 10 µF のコンデンサがあるかも確認してください。"_s,
        u"tolvex-cli --port %1 --trace trace.txt detect"_s.arg(path)};
}

bool FindWriter(Session& session) {
    return static_cast<bool>(session.Bench().detection.WriterCheck());
}

std::optional<Diagnosis> Examine(Session& session) {
    const QString path = session.PortPath();
    const PortFacts facts = session.Inspect(path);
    if (!facts.exists) {
        return Missing(session);
    }
    if (!facts.permitted) {
        return Forbidden(path, facts);
    }
    const bool found = FindWriter(session);
    if (session.Port().OpenFailed()) {
        return Busy(path, facts, session.PortError());
    }
    if (!found) {
        session.Bench().connection.WaitSeconds(kBoardStart);
        return FindWriter(session) ? StartedLate(path) : Silent(path);
    }
    const auto time = RoundTrip(session);
    if (!time) {
        return Silent(path);
    }
    session.Print(u"応答時間: %1 ms"_s.arg(time->count(), 0, 'f', 2));
    session.Report()[u"roundTripMilliseconds"_s] = time->count();
    return *time > kSlow ? std::optional(Slow(path)) : std::nullopt;
}

}  // namespace

int Doctor(Session& session, const Call&) {
    if (const int status = session.RequirePort()) {
        return status;
    }
    const auto diagnosis = Examine(session);
    if (session.Port().Stopped()) {
        return kSignalled;
    }
    if (!diagnosis) {
        session.Print(u"%1 は正常です。"_s.arg(session.PortName()));
        return kDone;
    }
    session.Report()[u"mend"_s] = diagnosis->command;
    const int status = session.Fail(diagnosis->cause, diagnosis->text);
    session.Print(u"  "_s + diagnosis->command);
    return status;
}

}  // namespace tolvex
