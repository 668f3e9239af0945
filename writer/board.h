// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QList>
#include <QString>
#include <chrono>
#include <optional>

#include "writer/board_reply.h"

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

/// A board at the end of its cable, as the PC knows it: bytes go in and come out, each at its time.
/// All times are the caller's, from any steady clock.
class Board {
  public:
    using Instant = WireLine::Instant;

    /// What has happened up to the moment of a `Run`.
    struct Events {
        QByteArray bytes;            ///< have arrived at the PC
        Instant lastByte{0};         ///< when the last of them did
        QList<BoardReply> commands;  ///< were carried out, as far as the board tells
        bool hangUp = false;         ///< the far end has gone; what was under way is lost
    };

    virtual ~Board() = default;

    /// The PC sends.
    virtual void Send(QByteArrayView bytes, Instant now) = 0;
    /// When to call `Run` next; nothing = not before the next `Send`.
    virtual std::optional<Instant> NextDue() const = 0;
    virtual Events Run(Instant now) = 0;
    /// Nothing more will come from it.
    virtual bool Ended() const { return false; }
    /// Why it can't go on; nothing as long as it can.
    virtual std::optional<QString> Failure() const { return std::nullopt; }
};

}  // namespace tolvex
