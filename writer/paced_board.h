// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QList>
#include <chrono>
#include <cstdint>
#include <deque>
#include <optional>

#include "writer/simulated_writer.h"

namespace tolvex {

/// One direction of a serial line: one byte after another, ten bits each.
class WireLine {
  public:
    using Instant = std::chrono::nanoseconds;

    /// 0 baud = no time at all.
    explicit WireLine(int baud);
    /// When a byte handed over at `now` has arrived, behind those handed over before.
    Instant Arrival(Instant now);

  private:
    Instant byteTime_;
    Instant busyUntil_{0};
};

/// The board at the end of its cable: every byte takes its time on the wire both ways. All times
/// follow from when the PC sent, never from when `Run` was called, so that a late caller adds no
/// drift. `Instant` is any steady time; the caller brings it.
class PacedBoard {
  public:
    using Instant = WireLine::Instant;

    /// What has happened up to the moment of a `Run`.
    struct Events {
        QByteArray bytes;            ///< have arrived at the PC
        Instant lastByte{0};         ///< when the last of them did
        QList<BoardReply> commands;  ///< were carried out by the board
        bool hangUp = false;         ///< the far end has gone; what was under way is lost
    };

    /// `writer` is not owned and outlives this. Between it and the PC stands an adapter that hands
    /// over what has come once in each `latency`; 0 = at once.
    PacedBoard(SimulatedWriter& writer, int baud, std::chrono::milliseconds latency = {});

    /// The PC sends.
    void Send(QByteArrayView bytes, Instant now);
    /// When to call `Run` next; nothing = not before the next `Send`.
    std::optional<Instant> NextDue() const;
    Events Run(Instant now);

  private:
    struct Arriving {
        Instant at;
        std::uint8_t byte;
        bool hangUp = false;  // in place of a byte
    };
    void Answer(const BoardReply& reply, Instant at);
    Instant HandedOver(Instant arrival) const;

    SimulatedWriter& writer_;
    int baud_;
    Instant latency_;
    WireLine toBoard_;
    WireLine toPc_;
    std::deque<Arriving> boardBound_;
    std::deque<Arriving> pcBound_;
};

}  // namespace tolvex
