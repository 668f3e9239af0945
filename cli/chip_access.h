// SPDX-License-Identifier: MIT
#pragma once

#include "cli/chip_record.h"
#include "cli/output.h"
#include "cli/surroundings.h"
#include "workbench/workbench.h"

namespace tolvex {

/// The writer with its chip, as a command needs it: found, of the right kind, and with the cause of
/// whatever went wrong.
class ChipAccess {
  public:
    struct Parts {
        const CliSurroundings& around;
        const std::optional<ChosenPort>& port;
        ChipRecord& record;
        Workbench& bench;
        Output& output;
        std::function<Status()> openTrace;
    };
    /// All of it is borrowed.
    explicit ChipAccess(const Parts& parts) : p_(parts) {}

    const CurrentDevice& Device() const { return p_.bench.state.device; }
    const DetectionResult& Detection() const { return detection_; }
    /// As last read.
    const ChipReading& Reading() const { return reading_; }
    /// "1E:91:01", as last read; nothing before.
    std::optional<QString> Signature() const;

    /// A port was chosen; also opens the trace, now that the arguments are proven.
    Status RequirePort() const;
    /// Nothing is required of the writer: false when none answers.
    bool FindWriter();
    /// The port could not be opened for the last detection.
    bool OpenFailed() const { return detection_.outcome == Outcome::NotSent; }
    /// The signature of the chip, of a writer that was found; nothing when it does not answer.
    std::optional<tolvex::Signature> Peek();
    /// Requires a writer, and reads the signature of the chip, whatever that is.
    Status DetectChip();
    /// Requires the detected chip to be readable and the selected device; `force` tells another one
    /// and lets it pass.
    Status RequireReadablePart(bool force);
    /// Requires the chip that was last read to be the selected device; `force` as above.
    Status RequirePart(bool force);
    /// Detects the chip and requires a readable one of the selected device.
    Status DetectPart(bool force);

    /// The chip that was last read is locked against reading.
    bool Locked() const { return reading_.signature == kLockedSignature; }

    /// Runs a sequence of the toolbar, with `force` on any chip.
    SequenceResult Run(SequenceResult (*sequence)(Workbench&), bool force = false);
    LockFuseResult ReadLockFuse();
    /// Of the chosen options, the given part.
    LockFuseResult WriteLockFuse(LockFusePart part);
    /// The given memories of a chip that was detected, into `images`.
    Status ReadMemories(Memories memories, MemoryImages& images);

    /// What an operation came to. What kept it from succeeding is looked for in the line, the
    /// writer and the chip; `otherwise` is what remains.
    Status Judge(bool success, const Failure& otherwise);
    /// The same after a comparison; prints and reports the differences.
    Status JudgeDifferences(const QList<Difference>& differences);

  private:
    LockFuseResult Keep(const LockFuseResult& result);
    ChipReading LookAtChip();
    ChipReading Look(double settleSeconds);
    void Prove();
    void TellFirmware();
    Failure OpeningFailure() const;
    Status RequireReadable() const;

    Parts p_;
    DetectionResult detection_ = {};
    ChipReading reading_ = {};
};

}  // namespace tolvex
