// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QList>
#include <chrono>

#include "base/serial_port.h"

namespace tolvex::bench {

/// What a client does on the line: waits, writes (nothing before it closes), and expects so many
/// bytes before the next step.
struct WireStep {
    std::chrono::microseconds pause{0};
    QByteArray bytes;
    qsizetype reply = 0;
};

/// Collects steps from what a client really did. A gap behind a reply counts as a pause from 90 ms
/// on, rounded to whole tenths of a second: the rest is what the client takes longer than need be.
class StepCollector {
  public:
    void Sent(std::chrono::microseconds at, const QByteArray& bytes);
    void Received(std::chrono::microseconds at, qsizetype count);
    QList<WireStep> steps;

  private:
    std::chrono::microseconds last_{0};
};

/// The steps of a session that `tolvex-cli --trace` has recorded.
QList<WireStep> StepsOfTrace(const QString& path);

/// The fastest possible client: the same steps with plain blocking calls on the terminal at
/// `path`. Nothing when the terminal can't be had or a reply fails to come within ten seconds.
struct FloorRun {
    double seconds = 0;
    bool complete = false;
};
FloorRun RunFloor(const QString& path, const QList<WireStep>& steps);

}  // namespace tolvex::bench
