// SPDX-License-Identifier: MIT
#pragma once

#include <QStringList>
#include <deque>
#include <random>

#include "firmware/simulator/avr_core.h"
#include "firmware/simulator/chip_socket.h"
#include "firmware/simulator/vcd_file.h"
#include "writer/board.h"

namespace tolvex {

/// The board that anyone can build, at the end of its cable: the HEX file that would be burnt runs
/// in the simulated processor, wired to a socket. Time goes on in `Run` alone.
class FirmwareBoard : public Board {
  public:
    /// How the board comes to life.
    enum class Start { PowerOn, AfterBootLoader };

    /// `socket` is not owned and outlives the board. `seed` is of the noise on MISO while it
    /// floats.
    explicit FirmwareBoard(ChipSocket& socket, unsigned seed = 1);
    /// Nothing when it worked, else the reason. To be called once, before anything else; the
    /// firmware has started then.
    std::optional<QString> Load(const QString& hexFile, Start start = Start::PowerOn);
    /// Writes all that happens on the lines from now on to a file. Nothing when it worked, else the
    /// reason.
    std::optional<QString> Record(const QString& path);
    /// The caller's time at which the board's own began; 0 without this.
    void StartsAt(Instant callersTime) { offset_ = callersTime - core_.Now(); }

    void Send(QByteArrayView bytes, Instant now) override;
    /// A byte that the line has damaged: the firmware gets a framing error with it.
    void SendDamaged(std::uint8_t byte, Instant now);
    /// From now on the PC doesn't await each answer before it sends on, so work after an answer is
    /// no breach.
    void TakeStreams() { streams_ = true; }
    /// No byte reaches the PC between a `Run` and this moment, unless the board was asked nothing
    /// for longer than any command takes.
    std::optional<Instant> NextDue() const override;
    Events Run(Instant now) override;
    /// What the firmware did wrong, a line for each.
    std::optional<QString> Failure() const override;
    Instant Now() const { return core_.Now() + offset_; }

    /// All lines to the chip float and the clock output rests.
    bool ChipIsReleased() const;
    bool LedIsOn() const { return LevelOf(kLedPin) == true; }
    /// What the firmware did wrong, in order.
    QStringList Violations() const { return socket_.Violations() + violations_; }
    /// The firmware gets stuck.
    void Hang() { core_.Hang(); }

  private:
    static constexpr int kLedPin = 0;

    struct Byte {
        Instant at;
        std::uint8_t value;
        bool damaged = false;
    };
    void UpdateLines();
    void NoticeTransmission(std::uint8_t byte);
    Level LevelOf(int pin) const;
    void JudgeLine();
    void RecordLines(bool miso);
    void Violate(const QString& what);

    ChipSocket& socket_;
    AvrCore core_;
    WireLine toBoard_;
    WireLine toPc_;
    std::deque<Byte> boardBound_;  // by their beginnings
    std::deque<Byte> pcBound_;     // by their ends
    Instant offset_{0};
    Instant lastByte_{0};   // in either direction
    bool streams_ = false;  // see TakeStreams
    bool answered_ = true;  // nothing has come since the last answer
    Level sck_;
    std::optional<VcdFile> record_;
    std::minstd_rand noise_;
    QStringList violations_;
};

}  // namespace tolvex
