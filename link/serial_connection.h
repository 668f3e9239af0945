// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <chrono>
#include <span>

#include "base/event_clock.h"
#include "base/serial_port.h"
#include "link/link.h"

namespace tolvex {

/// One command on its way out.
struct Request {
    char letter;
    /// Argument bytes; each element is a write of its own.
    std::span<const QByteArray> arguments = {};
    /// Pause between the letter and the arguments.
    double pauseSeconds = 0;
    /// Reply bytes to wait for.
    int need;
    std::chrono::seconds timeOut;
};

/// The line to the writer: one port, one exchange at a time. Not re-entrant: an exchange started
/// while another one waits would throw away the first one's reply.
class SerialConnection : public Waiting {
  public:
    /// Borrows both for its whole life.
    SerialConnection(SerialPort& port, EventClock& clock) : port_(port), clock_(clock) {}

    /// Prepares the port, 1 to 20, without opening it.
    void ConfigurePort(int number);
    int PortNumber() const { return port_.PortNumber(); }
    /// False when the port can't be opened, or the program is shutting down.
    bool OpenPort();
    /// Nothing happens when it is closed already.
    void ClosePort();
    bool IsOpen() const { return port_.IsOpen(); }

    /// True: the reply is in `RxBuffer`, `need` bytes or more. False: too few bytes came in time,
    /// or the port broke, which ends the exchange at once; `RxBuffer` keeps its old content.
    bool Exchange(const Request& request);
    /// The bytes of the last reply, in order of arrival.
    const QByteArray& RxBuffer() const { return rxBuffer_; }

    void WaitSeconds(double seconds) override;

  private:
    bool Send(const Request& request);
    bool AwaitReply(int need, std::chrono::seconds timeOut);

    SerialPort& port_;
    EventClock& clock_;
    QByteArray rxBuffer_;
};

}  // namespace tolvex
