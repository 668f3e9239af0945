// SPDX-License-Identifier: MIT
#include "link/serial_connection.h"

namespace tolvex {

void SerialConnection::ConfigurePort(int number) {
    port_.Configure({.number = number});
    port_.DiscardInput();
}

bool SerialConnection::OpenPort() {
    return !clock_.Ended() && port_.Open();
}

void SerialConnection::ClosePort() {
    if (port_.IsOpen()) {
        port_.Close();
    }
}

bool SerialConnection::Exchange(const Request& request) {
    // A late reply to an earlier command must not count as this one's.
    port_.DiscardInput();
    if (!Send(request) || !AwaitReply(request.need, request.timeOut)) {
        return false;
    }
    rxBuffer_ = port_.ReadAll();
    return true;
}

bool SerialConnection::Send(const Request& request) {
    if (!port_.Write(QByteArrayView(&request.letter, 1))) {
        return false;
    }
    if (request.pauseSeconds > 0) {
        WaitSeconds(request.pauseSeconds);
    }
    for (const QByteArray& bytes : request.arguments) {
        if (!port_.Write(bytes)) {
            return false;
        }
    }
    return true;
}

/// Count, then yield, then deadline: a complete reply costs no yield, and bytes that arrive during
/// the yield in which the deadline passes come too late.
bool SerialConnection::AwaitReply(int need, std::chrono::seconds timeOut) {
    const EventClock::Instant deadline = clock_.Now() + timeOut;
    while (port_.InputCount() < need) {
        clock_.Yield(deadline);
        const bool broken = !port_.IsOpen() || clock_.Ended();
        if (broken || clock_.Now() > deadline) {
            return false;
        }
    }
    return true;
}

void SerialConnection::WaitSeconds(double seconds) {
    const EventClock::Instant end = clock_.Now() + std::chrono::duration_cast<EventClock::Instant>(
                                                       std::chrono::duration<double>(seconds));
    while (clock_.Now() < end && !clock_.Ended()) {
        clock_.Yield(end);
    }
}

}  // namespace tolvex
