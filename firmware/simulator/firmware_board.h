// SPDX-License-Identifier: MIT
#pragma once

#include <QStringList>
#include <deque>

#include "firmware/simulator/avr_core.h"
#include "firmware/simulator/chip_socket.h"
#include "writer/board.h"

namespace tolvex {

/// The board that anyone can build, at the end of its cable: the HEX file that would be burnt runs
/// in the simulated processor, wired to a socket. Time goes on in `Run` alone.
class FirmwareBoard : public Board {
  public:
    /// `socket` is not owned and outlives the board.
    explicit FirmwareBoard(ChipSocket& socket);
    /// Nothing when it worked, else the reason. To be called once, before anything else; the
    /// firmware has started then.
    std::optional<QString> Load(const QString& hexFile);
    /// The caller's time at which the board's own began; 0 without this.
    void StartsAt(Instant callersTime) { offset_ = callersTime - core_.Now(); }

    void Send(QByteArrayView bytes, Instant now) override;
    /// No byte reaches the PC between a `Run` and this moment, unless the board was asked nothing
    /// for longer than any command takes.
    std::optional<Instant> NextDue() const override;
    Events Run(Instant now) override;
    /// What the firmware did wrong, a line for each.
    std::optional<QString> Failure() const override;
    Instant Now() const { return core_.Now() + offset_; }

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
    Instant offset_{0};
    Instant lastByte_{0};  // in either direction
    QStringList violations_;
};

}  // namespace tolvex
