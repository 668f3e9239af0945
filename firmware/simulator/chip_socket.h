// SPDX-License-Identifier: MIT
#pragma once

#include <optional>

#include "firmware/simulator/serial_programming.h"

namespace tolvex {

/// A line from the board; nothing = it floats.
using Level = std::optional<bool>;

/// The socket as the wires see it: from levels and their times to bits, bytes and instructions. It
/// notes clocks that are too fast, lines that float or are driven when they shouldn't, and a reset
/// that isn't one.
class ChipSocket {
  public:
    using Instant = SerialProgramming::Instant;

    struct Lines {
        Level reset, sck, mosi;
        double clockHertz = 0;  ///< of the board's clock output; 0 = it rests
    };

    /// `chip` is not owned and outlives this; null is an empty socket.
    explicit ChipSocket(SimulatedChip* chip, const ChipOptions& options = {});

    void SetLines(const Lines& lines, Instant now);
    /// What the chip puts on MISO.
    Level Miso() const;
    /// Whether a chip in it is writing.
    bool IsBusy(Instant now) const { return programming_ && programming_->IsBusy(now); }
    /// What was done wrong, in order: "0.021330 s: SCK is too fast".
    QStringList Violations() const;

  private:
    void NoticeDrive(const Lines& lines, Instant now);
    void NoticeMosi(const Lines& lines, Instant now);
    void NoticeReset(const Lines& lines, Instant now);
    void NoticeClock(const Lines& lines, Instant now);
    void TakeBit(bool bit, Instant now);
    bool MoreThan(int clocks, Instant time, const Lines& lines) const;

    ChipOptions options_;
    std::optional<SerialProgramming> programming_;  // the chip's inside
    Lines lines_;                                   // as they were
    bool resetHigh_ = true;
    bool readyForClocks_ = false;  // RESET went low while SCK was
    bool sckHigh_ = false;
    Instant resetChange_{0};
    Instant sckChange_{0};
    Instant mosiChange_{0};
    int missing_ = 0;  // clocks that won't be noticed
    int bits_ = 0;     // of the instruction so far
    SerialProgramming::Bytes bytes_{};
    Instant begun_{0};
    std::uint8_t answer_ = 0xFF;
    bool miso_ = true;
};

}  // namespace tolvex
