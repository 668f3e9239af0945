// SPDX-License-Identifier: MIT
#pragma once

#include <QFile>

#include "base/event_clock.h"
#include "cli/observed_port.h"

namespace tolvex {

/// Writes what goes over the line into a text file, a line an event, microseconds since the file
/// was opened first: "1042 > 53" (to the writer), "4711 < 41 56", "0 open COM5", "0 refused COM5",
/// "9000 close", "9000 lost". The simulated board can play its side of it back.
class TraceFile : public WireListener {
  public:
    /// `clock` is borrowed.
    explicit TraceFile(const EventClock& clock) : clock_(clock) {}

    /// Replaces the file; false when it can't be written.
    bool Open(const QString& path);

    void Opened(int number, bool success) override;
    void Closed() override { Write("close"); }
    void Lost() override { Write("lost"); }
    void Began() override {}
    void Sent(QByteArrayView bytes) override { Write("> ", bytes); }
    void Received(QByteArrayView bytes) override { Write("< ", bytes); }

  private:
    void Write(const QByteArray& event, QByteArrayView bytes = {});

    const EventClock& clock_;
    QFile file_;
    EventClock::Instant start_{0};
};

}  // namespace tolvex
