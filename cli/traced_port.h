// SPDX-License-Identifier: MIT
#pragma once

#include <QFile>

#include "base/event_clock.h"
#include "base/serial_port.h"

namespace tolvex {

/// Any serial port, with what goes over it written into a text file, a line an event: microseconds
/// since the file was opened, then "> 53" (to the writer), "< 41 56", "open COM5", "refused COM5",
/// "close" or "lost" (the port closed itself). The simulated board can play its side of it back.
/// Without a file nothing is recorded.
class TracedPort : public SerialPort {
  public:
    /// Both borrowed.
    TracedPort(SerialPort& port, const EventClock& clock) : port_(port), clock_(clock) {}

    /// Replaces the file at `path`; false when it can't be written.
    bool TraceTo(const QString& path);
    QString TracePath() const { return file_.fileName(); }
    /// Part of the trace could not be written.
    bool TraceIncomplete() const { return incomplete_; }

    void Configure(int number) override { port_.Configure(number); }
    int PortNumber() const override { return port_.PortNumber(); }
    bool Open() override;
    void Close() override;
    bool IsOpen() const override { return port_.IsOpen(); }
    int InputCount() const override {
        return IsOpen() ? static_cast<int>(input_.size()) + port_.InputCount() : 0;
    }
    void DiscardInput() override;
    bool Write(QByteArrayView bytes) override;
    QByteArray ReadAll() override;
    /// Records what has arrived since the last call, and that the port has closed itself. Reading
    /// does so too; called after each wait, every byte has its own time.
    void Fetch();

  private:
    void Note(const QByteArray& event, QByteArrayView bytes = {});

    SerialPort& port_;
    const EventClock& clock_;
    QFile file_;
    EventClock::Instant start_{0};
    QByteArray input_;
    bool open_ = false;  ///< as far as it is recorded
    bool incomplete_ = false;
};

}  // namespace tolvex
