// SPDX-License-Identifier: MIT
#pragma once

#include "base/serial_port.h"
#include "cli/stoppable_clock.h"
#include "cli/trace_file.h"

namespace tolvex {

/// A serial port that is traced, and the place where an operation can be ended: between two
/// commands, so that what the chip was told is known to the byte. From then on nothing goes out:
/// every command of the operation fails at once, and the operation unwinds by itself.
///
/// A signal ends it, and so do several time-outs close together: waiting them out for each of
/// thousands of words would help nobody.
class ObservedPort : public SerialPort {
  public:
    /// All borrowed.
    ObservedPort(SerialPort& port, const StoppableClock& clock, TraceFile& trace)
        : port_(port), clock_(clock), trace_(trace) {}

    /// The last `Open` failed.
    bool OpenFailed() const { return openFailed_; }
    /// Ended by a signal.
    bool Stopped() const { return stopped_; }
    /// The far end went away while the port was open.
    bool Lost() const { return lost_; }
    /// The last command began so long ago that its time-out has passed.
    bool TimedOut() const;
    /// The last command went out, at least its letter.
    bool Sent() const { return sent_; }
    /// Lets commands through again, whatever is asked: to leave programming mode.
    void Resume();

    void Configure(const PortSettings& settings) override { port_.Configure(settings); }
    int PortNumber() const override { return port_.PortNumber(); }
    bool Open() override;
    void Close() override;
    bool IsOpen() const override;
    int InputCount() const override;
    void DiscardInput() override;
    bool Write(QByteArrayView bytes) override;
    QByteArray ReadAll() override;

  private:
    void Fetch() const;
    bool MayBegin(char letter);

    SerialPort& port_;
    const StoppableClock& clock_;
    TraceFile& trace_;
    bool openFailed_ = false;
    bool stopped_ = false;
    bool farewell_ = false;  ///< nothing ends it any more
    bool sent_ = false;
    bool between_ = true;                            ///< the next write begins a command
    int timeOuts_ = 0;                               ///< of late
    int inTime_ = 0;                                 ///< replies since the last of them
    std::optional<EventClock::Instant> began_ = {};  ///< the last command
    // Looking at the port is what notices these, hence mutable.
    mutable bool open_ = false;
    mutable bool lost_ = false;
    /// Taken off the port as soon as it is seen, so that the trace has each byte's time.
    mutable QByteArray input_;
};

}  // namespace tolvex
