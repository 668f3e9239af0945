// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QList>
#include <QString>
#include <chrono>

namespace tolvex::bench {

/// What a client does on the line: waits, writes (nothing before it closes), and expects so many
/// bytes before the next step.
struct WireStep {
    std::chrono::microseconds pause{0};
    QByteArray bytes;
    qsizetype reply = 0;
};

/// The steps of a session that `tolvex-cli --trace` has recorded. A gap behind a reply counts as a
/// pause from 90 ms on, rounded to whole tenths of a second: the rest is what the client takes
/// longer than need be. Nothing when the file can't be read.
QList<WireStep> StepsOfTrace(const QString& path);

/// The fastest possible client: the same steps with plain blocking calls on the terminal at
/// `path`. Nothing when the terminal can't be had or a reply fails to come within ten seconds.
struct FloorRun {
    double seconds = 0;
    bool complete = false;
};
FloorRun RunFloor(const QString& path, const QList<WireStep>& steps);

}  // namespace tolvex::bench
