// SPDX-License-Identifier: MIT
#pragma once

#include <QStringList>
#include <array>
#include <chrono>
#include <cstdint>
#include <optional>
#include <random>

#include "firmware/simulator/chip_rules.h"
#include "writer/simulated_chip.h"

namespace tolvex {

/// What differs from one socket to the next.
struct ChipOptions {
    std::optional<double> ownClockHertz = {};  ///< none = the chip takes the clock of the board
    bool lowSupply = false;                    ///< writing takes the longest time, not the shortest
    int missedClocks = 0;                      ///< clocks after a reset that the chip misses
    bool misoBroken = false;                   ///< the chip hears but isn't heard
    unsigned seed = 1;                         ///< of all noise: what floats, what is undefined
};

/// The inside of a chip that is being programmed: takes four-byte instructions, answers, and notes
/// every one that a real chip would not be obliged to carry out.
class SerialProgramming {
  public:
    using Instant = std::chrono::nanoseconds;
    using Bytes = std::array<std::uint8_t, 4>;

    /// `chip` is not owned.
    SerialProgramming(SimulatedChip& chip, const ChipOptions& options);

    const ChipRules& Rules() const { return rules_; }

    void ResetGoesLow();
    void ResetGoesHigh(Instant now);
    /// What the chip shifts out during byte `index` (0 to 3) of an instruction whose earlier bytes
    /// are known; during byte 0 `bytes` is the instruction before. `begun` is when the instruction
    /// began.
    std::uint8_t Answer(const Bytes& bytes, int index, Instant begun, Instant now);
    void Finish(const Bytes& bytes, Instant begun, Instant now);

    /// Whether a write or an erase is under way.
    bool IsBusy(Instant now) const { return now < busyUntil_; }

    /// What was done wrong, in order.
    const QStringList& Violations() const { return violations_; }
    void Violate(const QString& what, Instant now);

  private:
    struct Instruction;
    static const Instruction kInstructions[];
    enum class Act;

    const Instruction* Find(const Bytes& bytes) const;
    bool Polls(const Instruction& instruction, const Bytes& bytes) const;
    std::uint8_t Read(const Instruction& instruction, const Bytes& bytes);
    void Write(const Instruction& instruction, const Bytes& bytes, Instant now);
    void StartWork(std::chrono::milliseconds time, Instant now, std::optional<Bytes> writing);
    std::uint8_t BusyValue(const Instruction& instruction, Instant now) const;
    std::uint8_t Noise();

    SimulatedChip& chip_;
    ChipOptions options_;
    ChipRules rules_;
    bool enabled_ = false;
    bool firstInstruction_ = true;
    bool erased_ = false;  // since the last reset
    Instant busySince_{0}, busyUntil_{0};
    std::optional<Bytes> writing_;  // a byte, until busyUntil_
    std::minstd_rand noise_;
    QStringList violations_;
};

}  // namespace tolvex
