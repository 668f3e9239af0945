// SPDX-License-Identifier: MIT
#pragma once

#include <QList>
#include <QStringList>
#include <functional>
#include <memory>
#include <optional>

#include "base/serial_port.h"
#include "tests/support/virtual_clock.h"
#include "writer/paced_board.h"

namespace tolvex::testing {

/// A serial port with the simulated board at its end, in virtual time, and a record of all that
/// went over it. Clock and writer are not owned and outlive the port.
class SimulatedPort : public SerialPort {
  public:
    /// With 0 baud the reply is there as soon as the command is written.
    SimulatedPort(SimulatedWriter& writer, VirtualClock& clock, int baud = 19200)
        : writer_(writer), clock_(clock), baud_(baud) {}

    void Configure(int number) override {
        number_ = number;
        calls_ << QStringLiteral("configure %1").arg(number);
    }
    int PortNumber() const override { return number_; }
    bool Open() override;
    void Close() override { Disconnect(QStringLiteral("close")); }
    bool IsOpen() const override { return board_ != nullptr; }
    int InputCount() const override { return static_cast<int>(input_.size()); }
    void DiscardInput() override;
    bool Write(QByteArrayView bytes) override;
    QByteArray ReadAll() override { return std::exchange(input_, {}); }

    /// From now on every reply comes this much later.
    void DelayReplies(std::chrono::milliseconds delay) { delay_ = delay; }
    /// Opening fails from now on, as for a port that is missing or busy.
    void RefuseOpen(bool refuse = true) { refuse_ = refuse; }

    /// Runs before every write and hears whether a command begins with it; false refuses it.
    void OnWrite(std::function<bool(QByteArrayView bytes, bool begins)> hook) {
        hook_ = std::move(hook);
    }

    /// One entry a command that the board carried out: "A 00 10", "c 0C".
    QStringList Wire() const { return wire_; }
    /// "configure 3", "discard", "open", "open refused", "close", "hang-up", in order. Only the
    /// discards of a closed port are here: every command begins with one.
    QStringList Calls() const { return calls_; }
    void ForgetTrace();
    /// How long ago the line went away, or the clock began.
    VirtualClock::Instant SinceHangUp() const { return clock_.Now() - hungUpAt_; }

    QList<QByteArray> writes;  ///< each successful `Write` as its own entry

  private:
    void Deliver();
    void Disconnect(const QString& how);

    SimulatedWriter& writer_;
    VirtualClock& clock_;
    int baud_;
    int number_ = 1;
    bool refuse_ = false;
    std::function<bool(QByteArrayView, bool)> hook_;
    bool begins_ = true;
    std::chrono::milliseconds delay_{0};
    std::shared_ptr<PacedBoard> board_;  // lives while the port is open; with it go bytes under way
    std::optional<VirtualClock::Instant> wakeAt_;
    VirtualClock::Instant hungUpAt_{0};
    QByteArray input_;
    QStringList wire_, calls_;
};

}  // namespace tolvex::testing
