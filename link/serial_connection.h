// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <chrono>
#include <span>

#include "base/event_clock.h"
#include "base/serial_port.h"

namespace tolvex {

/// How a command ended.
enum class Outcome {
    Ok,
    NotSent,     ///< nothing went out: the port is closed, or commands are held back
    NoReply,     ///< too few bytes came within the time-out
    WrongReply,  ///< the reply is not the one that the command expects
    LineLost,    ///< the port broke or refused bytes; nobody knows what went out
    Abandoned    ///< the program ended while the reply was awaited
};

/// One command on its way out.
struct Request {
    char letter;
    std::span<const std::uint8_t> arguments = {};
    std::size_t bytesPerWrite = 1;  ///< how many argument bytes go out in one write
    double pauseSeconds{};          ///< between the letter and the arguments
    int need;                       ///< reply bytes to wait for
    std::chrono::seconds timeOut;
};

/// The line to the writer: one port, one exchange at a time. Not re-entrant: an exchange started
/// while another one waits would throw away the first one's reply.
class SerialConnection {
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

    /// After `Ok` there are `need` bytes or more in `reply`, in order of arrival; otherwise it is
    /// left as it was. Never `WrongReply`: that is the command's to tell.
    Outcome Exchange(const Request& request, QByteArray& reply);

    /// A delay that keeps serving the event loop. 0 returns at once, without yielding.
    void WaitSeconds(double seconds);

  private:
    Outcome Send(const Request& request);
    Outcome AwaitReply(int need, std::chrono::seconds timeOut);

    SerialPort& port_;
    EventClock& clock_;
};

}  // namespace tolvex
