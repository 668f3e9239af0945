// SPDX-License-Identifier: MIT
#pragma once

#include <QJsonObject>
#include <functional>
#include <optional>

#include "cli/chip_memories.h"
#include "cli/chip_record.h"
#include "cli/console.h"
#include "cli/exit_status.h"
#include "cli/fixed_settings.h"
#include "cli/stoppable_clock.h"
#include "cli/terminal_user_interface.h"
#include "cli/traced_port.h"
#include "device/catalogue.h"
#include "port/com_ports.h"
#include "port/port_facts.h"
#include "workbench/workbench.h"

namespace tolvex {

/// What the tool finds around it; borrowed, all of it outlives the run.
struct CliSurroundings {
    SerialPort& port;
    std::function<QString()> portError;  ///< why the last opening failed
    EventClock& clock;
    const Settings& settings;  ///< the stored ones
    ComPorts& comPorts;
    Console& console;
    std::function<int()> signal;  ///< the signal that asks to stop; 0 = none
    std::function<PortFacts(const QString& path)> inspectPort;
};

/// The options that every command knows.
struct CommonOptions {
    std::optional<PortChoice> port;  ///< nothing = the stored one
    std::optional<int> device;       ///< entry of the device list; nothing = the stored one
    bool json = false;
    bool quiet = false;
    QString trace;             ///< a file; empty = none
    bool outputTaken = false;  ///< the output is a file's: remarks go to the error stream
};

/// One run of one command: the workbench with a terminal around it, and what the command reports.
/// Whatever can fail gives `kDone`, or the status of a failure that has been told; a signal is one
/// of them.
class Session {
  public:
    Session(const CliSurroundings& around, const CommonOptions& options, const QString& command);
    Session(const Session&) = delete;

    Workbench& Bench() { return bench_; }
    const CurrentDevice& Device() const { return bench_.state.device; }
    /// A signal has ended the run.
    bool Stopped() const { return chip_.Stopped(); }
    const WriterIdentity& Identity() const { return detection_.identity; }
    /// As last read.
    const ChipReading& Reading() const { return reading_; }
    /// "1E:91:01", as last read; empty before.
    QString Signature() const;
    ComPorts& Ports() { return around_.comPorts; }
    /// 1 to 20; 0 = none chosen.
    int PortNumber() const;
    QString PortPath() const { return around_.comPorts.DevicePath(PortNumber()); }
    /// For a person: "COM5 (/dev/ttyUSB0)", or the path alone when that was asked for.
    QString PortName() const;
    PortFacts Inspect(const QString& path) const { return around_.inspectPort(path); }
    /// Why the last opening failed.
    QString PortError() const { return around_.portError(); }
    EventClock::Instant Now() const { return clock_.Now(); }
    /// Since the run began.
    std::chrono::duration<double> Elapsed() const { return clock_.Now() - start_; }

    /// Records the line from now on if that was asked for.
    int OpenTrace();

    /// The JSON object under construction.
    QJsonObject& Report() { return report_; }
    /// A line of the result; not with --json.
    void Print(const QString& line);
    /// A line that a person at the terminal wants to see and a script doesn't: not with --json or
    /// --quiet.
    void Tell(const QString& line);
    /// A remark of the tool itself on the error stream.
    void Remark(const QString& line);
    /// A file's text as the output.
    void Put(const QByteArray& text) { around_.console.Put(text); }
    /// The reason for a failing end, for a person and for a machine.
    int Fail(Cause cause, const QString& text);

    int RequirePort();
    /// Detects the writer and looks at the chip in the socket, whatever that is.
    int DetectChip();
    /// The same, and then a readable chip of the chosen kind is required; with `force`, of any
    /// kind.
    int DetectPart(bool force);
    /// Of the chip that was detected.
    int DetectedPart(bool force = false);
    /// The chip that was last read is of the chosen kind, or `force` lets another one pass.
    int RequirePart(bool force);
    /// True = a writer answers.
    bool FindWriter();
    /// The port could not be opened for the last detection.
    bool OpenFailed() const { return detection_.outcome == Outcome::NotSent; }
    /// Runs a sequence of the toolbar, with `force` on any chip.
    SequenceResult Run(SequenceResult (*sequence)(Workbench&), bool force = false);
    LockFuseResult ReadLockFuse();
    /// Of the chosen options, the given parts.
    LockFuseResult WriteLockFuse(LockFusePart part);
    /// Reads memories of a chip that has been found.
    int ReadMemories(Memories memories, MemoryImages& images);
    /// The status after an operation. What kept it from succeeding is looked for in the line, the
    /// writer and the chip; `cause` is what remains.
    int Judge(bool success, Cause cause, const QString& text);
    /// The same after a comparison; prints the differences and puts them into the report.
    int JudgeDifferences(const QList<Difference>& differences);

    /// Leaves the board as it should be and gives the final status.
    int Finish(int status);

  private:
    /// The port was asked for by its path.
    bool ByPath() const { return options_.port && options_.port->byPath; }
    int FailOpening();
    int FailReading();
    ChipReading LookAtChip();
    LockFuseResult Keep(const LockFuseResult& result);
    void TellFirmware();
    void LeaveBoard();
    void ReportFindings();

    CliSurroundings around_;
    CommonOptions options_;
    AppDir folders_;  ///< none: nothing is listed
    FixedSettings settings_;
    TracedPort port_;
    StoppableClock clock_;
    EventClock::Instant start_;
    ChipRecord chip_;
    bool leaving_ = false;
    TerminalUserInterface ui_;
    Workbench bench_;
    DetectionResult detection_;
    ChipReading reading_;
    QJsonObject report_;
};

}  // namespace tolvex
