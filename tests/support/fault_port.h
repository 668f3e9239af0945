// SPDX-License-Identifier: MIT
#pragma once

#include <QSet>
#include <chrono>
#include <memory>
#include <utility>

#include "base/serial_port.h"
#include "tests/support/virtual_clock.h"

namespace tolvex::testing {

enum class LineFault { Delay };

/// Any serial port behind an adapter that holds the replies to chosen exchanges back. An exchange
/// begins with the first `Write` after a `DiscardInput`, and they are counted from 1. Port and
/// clock are not owned and outlive this.
class FaultPort : public SerialPort {
  public:
    FaultPort(SerialPort& port, VirtualClock& clock) : port_(port), clock_(clock) {}

    void SetFault(int exchange, LineFault) { delayed_ << exchange; }
    void SetDelay(std::chrono::milliseconds delay) { delay_ = delay; }

    void Configure(const PortSettings& settings) override { port_.Configure(settings); }
    int PortNumber() const override { return port_.PortNumber(); }
    bool Open() override { return port_.Open(); }
    void Close() override { port_.Close(); }
    bool IsOpen() const override { return port_.IsOpen(); }
    int InputCount() const override {
        Take();
        return static_cast<int>(input_->size());
    }
    void DiscardInput() override {
        port_.DiscardInput();
        input_ = std::make_shared<QByteArray>();
        between_ = true;
    }
    bool Write(QByteArrayView bytes) override {
        exchanges_ += std::exchange(between_, false) ? 1 : 0;
        return port_.Write(bytes);
    }
    QByteArray ReadAll() override {
        Take();
        return std::exchange(*input_, {});
    }

  private:
    /// Takes bytes off the line; delayed ones are still under way for a while.
    void Take() const {
        const QByteArray bytes = port_.ReadAll();
        if (!delayed_.contains(exchanges_)) {
            *input_ += bytes;
        } else if (!bytes.isEmpty()) {
            clock_.At(clock_.Now() + delay_, [bytes, input = input_] { *input += bytes; });
        }
    }

    SerialPort& port_;
    VirtualClock& clock_;
    QSet<int> delayed_;
    std::chrono::milliseconds delay_{1000};
    int exchanges_ = 0;
    bool between_ = true;
    std::shared_ptr<QByteArray> input_ = std::make_shared<QByteArray>();
};

}  // namespace tolvex::testing
