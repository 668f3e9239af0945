// SPDX-License-Identifier: MIT
#pragma once

#include <QMap>
#include <chrono>
#include <memory>
#include <optional>
#include <random>

#include "platform/serial_port.h"
#include "tests/support/virtual_clock.h"

namespace tolvex::testing {

/// What a bad line does to the reply of one exchange.
enum class LineFault {
    Drop,     ///< the reply is lost
    Shorten,  ///< its first byte is lost
    Garble,   ///< its first byte has all bits inverted
    Delay,    ///< it comes later
    HangUp    ///< the port closes by itself when the command has been sent
};

/// Any serial port behind a bad line. An exchange begins with the first `Write` after a
/// `DiscardInput` (or after opening), and they are counted from 1. Port and clock are not owned and
/// outlive this.
class FaultPort : public SerialPort {
  public:
    FaultPort(SerialPort& port, VirtualClock& clock);

    void SetFault(int exchange, LineFault fault) { planned_[exchange] = fault; }
    /// From now on about one exchange in `oneIn` meets a random fault, the same ones for the same
    /// seed. Planned faults go first.
    void Seed(std::uint32_t seed, int oneIn);
    /// How late a delayed reply is.
    void SetDelay(std::chrono::milliseconds delay) { delay_ = delay; }
    int Exchanges() const { return exchanges_; }
    /// The faults that exchanges have met so far, by number.
    QMap<int, LineFault> Met() const { return met_; }

    void Configure(const PortSettings& settings) override { port_.Configure(settings); }
    int PortNumber() const override { return port_.PortNumber(); }
    bool Open() override;
    void Close() override;
    bool IsOpen() const override { return port_.IsOpen(); }
    int InputCount() const override;
    void DiscardInput() override;
    bool Write(QByteArrayView bytes) override;
    QByteArray ReadAll() override;

  private:
    void BeginExchange();
    void Take() const;

    SerialPort& port_;
    VirtualClock& clock_;
    QMap<int, LineFault> planned_, met_;
    std::mt19937 random_;
    int oneIn_ = 0;
    std::chrono::milliseconds delay_{1000};
    int exchanges_ = 0;
    bool between_ = true;  // the next write begins an exchange
    std::optional<LineFault> fault_;
    // What came through; shared with delayed bytes that are still under way. Polling the count
    // takes bytes off the line, hence mutable.
    mutable std::shared_ptr<QByteArray> input_;
    mutable bool firstByte_ = true;
};

}  // namespace tolvex::testing
