// SPDX-License-Identifier: MIT
#include "link/serial_connection.h"

#include <algorithm>

namespace tolvex {

void SerialConnection::ConfigurePort(int number) {
    port_.Configure(number);
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

Outcome SerialConnection::Exchange(const Request& request, QByteArray& reply) {
    // A late reply to an earlier command must not count as this one's.
    port_.DiscardInput();
    Outcome outcome = Send(request);
    if (outcome == Outcome::Ok) {
        outcome = AwaitReply(request.need, request.timeOut);
    }
    if (outcome == Outcome::Ok) {
        reply = port_.ReadAll();
    }
    return outcome;
}

Outcome SerialConnection::Send(const Request& request) {
    const bool open = port_.IsOpen();
    if (!port_.Write(QByteArrayView(&request.letter, 1))) {
        return open ? Outcome::LineLost : Outcome::NotSent;
    }
    if (request.pauseSeconds > 0) {
        WaitSeconds(request.pauseSeconds);
    }
    for (auto left = request.arguments; !left.empty();) {
        const auto part = left.first(std::min(request.bytesPerWrite, left.size()));
        if (!port_.Write(QByteArrayView(part))) {
            return Outcome::LineLost;
        }
        left = left.subspan(part.size());
    }
    return Outcome::Ok;
}

/// Count, then yield, then deadline: a complete reply costs no yield, and bytes that arrive during
/// the yield in which the deadline passes come too late.
Outcome SerialConnection::AwaitReply(int need, std::chrono::seconds timeOut) {
    const EventClock::Instant deadline = clock_.Now() + timeOut;
    while (port_.InputCount() < need) {
        clock_.Yield(deadline);
        if (clock_.Ended()) {
            return Outcome::Abandoned;
        }
        if (!port_.IsOpen()) {
            return Outcome::LineLost;
        }
        if (clock_.Now() > deadline) {
            return Outcome::NoReply;
        }
    }
    return Outcome::Ok;
}

void SerialConnection::WaitSeconds(double seconds) {
    const EventClock::Instant end = clock_.Now() + std::chrono::duration_cast<EventClock::Instant>(
                                                       std::chrono::duration<double>(seconds));
    while (clock_.Now() < end && !clock_.Ended()) {
        clock_.Yield(end);
    }
}

}  // namespace tolvex
