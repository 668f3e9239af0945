// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QStringList>
#include <deque>

#include "firmware/simulator/avr_core.h"
#include "firmware/simulator/chip_socket.h"
#include "writer/paced_board.h"

namespace tolvex {

/// The board that anyone can build, at the end of its cable: the HEX file that would be burnt runs
/// in the simulated processor, wired to a socket. Time is the board's own and goes on in `Run`.
class FirmwareBoard {
  public:
    using Instant = WireLine::Instant;

    struct Events {
        QByteArray bytes;     ///< have arrived at the PC
        Instant lastByte{0};  ///< when the last of them did
    };

    /// `socket` is not owned and outlives the board.
    explicit FirmwareBoard(ChipSocket& socket);
    /// Empty when it worked, else the reason. To be called once, before anything else; the firmware
    /// has started then.
    QString Load(const QString& hexFile);

    /// The PC sends.
    void Send(QByteArrayView bytes, Instant now);
    /// No byte reaches the PC between a `Run` and this moment.
    Instant NextDue() const;
    Events Run(Instant now);
    Instant Now() const { return core_.Now(); }

    /// All lines to the chip float and the clock output rests.
    bool ChipIsReleased() const;
    /// What the firmware did wrong, in order.
    QStringList Violations() const { return socket_.Violations() + violations_; }
    /// The firmware gets stuck.
    void Hang() { core_.Hang(); }

  private:
    struct Byte {
        Instant at;
        std::uint8_t value;
    };
    void UpdateLines();
    Level LevelOf(int pin) const;

    ChipSocket& socket_;
    AvrCore core_;
    WireLine toBoard_;
    WireLine toPc_;
    std::deque<Byte> boardBound_;  // by their beginnings
    std::deque<Byte> pcBound_;     // by their ends
    QStringList violations_;
};

}  // namespace tolvex
