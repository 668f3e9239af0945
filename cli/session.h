// SPDX-License-Identifier: MIT
#pragma once

#include <QJsonObject>
#include <functional>
#include <optional>

#include "cli/chip_record.h"
#include "cli/console.h"
#include "cli/exit_status.h"
#include "cli/fixed_settings.h"
#include "cli/observed_port.h"
#include "cli/option_lists.h"
#include "cli/port_choice.h"
#include "cli/port_facts.h"
#include "cli/stoppable_clock.h"
#include "cli/terminal_person.h"
#include "cli/trace_file.h"
#include "platform/com_ports.h"
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
    std::function<bool()> stopAsked;  ///< the person pressed Ctrl-C
    std::function<PortFacts(const QString& path)> inspectPort;
};

/// The options that every command knows.
struct CommonOptions {
    std::optional<PortChoice> port;  ///< nothing = the stored one
    std::optional<int> device;       ///< entry of the device list; nothing = the stored one
    bool json = false;
    bool quiet = false;
    QString trace;  ///< a file; empty = none
};

/// One run of one command: the workbench with a terminal around it, and what the command reports.
class Session {
  public:
    Session(const CliSurroundings& around, const CommonOptions& options, const QString& command);

    Workbench& Bench() { return bench_; }
    TerminalPerson& Person() { return person_; }
    OptionLists& Lists() { return lists_; }
    ObservedPort& Port() { return port_; }
    const ChipRecord& Chip() const { return chip_; }
    EventClock& Clock() { return clock_; }
    ComPorts& Ports() { return around_.comPorts; }
    /// 1 to 20; 0 = none chosen.
    int PortNumber() const;
    QString PortPath() const { return around_.comPorts.DevicePath(PortNumber()); }
    /// For a person: "COM5 (/dev/ttyUSB0)", or the path alone when that was asked for.
    QString PortName() const;
    PortFacts Inspect(const QString& path) const { return around_.inspectPort(path); }
    /// Why the last opening failed.
    QString PortError() const { return around_.portError(); }

    /// Records the line from now on if that was asked for. False when the file can't be written;
    /// that has been told.
    bool OpenTrace();

    /// The JSON object under construction.
    QJsonObject& Report() { return report_; }
    /// A line of the result; not with --json.
    void Print(const QString& line);
    /// A line that a person at the terminal wants to see and a script doesn't: not with --json or
    /// --quiet.
    void Tell(const QString& line);
    /// A remark of the tool itself, unless --quiet.
    void Remark(const QString& line);
    /// The reason for a failing end, for a person and for a machine; gives `status` back.
    int Fail(ExitStatus status, const char* code, const QString& text);

    /// `kDone` when a port was chosen at all, else the status of a failure that has been told.
    int RequirePort();
    /// Runs a chain of the toolbar, or a read or write of lock and fuse bits, and keeps what it
    /// said of writer and chip for the report.
    ChainResult RunChain(QStringView key);
    LockFuseResult RunFuses(LockFuseResult (LockFuseBits::*operation)());
    const WriterIdentity& Identity() const { return detection_.identity; }
    ChipVerdict Verdict() const { return reading_.verdict; }
    /// Detects the writer and checks the chip in the socket.
    /// `kDone`, or the status of a failure that has been told.
    int DetectChip();
    /// The status after an operation that succeeded or not. A failure is told under `code`, unless
    /// the reason is that the port or the writer wasn't there.
    int Judge(bool success, const char* code, const QString& text);

    /// Leaves the board as it should be, prints the JSON object and gives the final status.
    int Finish(int status);

  private:
    void LeaveBoard();
    void ReportFindings();
    int FinishInterrupted();

    CliSurroundings around_;
    CommonOptions options_;
    AppDir folders_;
    FixedSettings settings_;
    ChipRecord chip_;
    TraceFile trace_;
    ObservedPort port_;
    StoppableClock clock_;
    bool deaf_ = false;
    TerminalPerson person_;
    OptionLists lists_;
    Workbench bench_;
    DetectionResult detection_;
    ChipReading reading_;
    QJsonObject report_;
};

}  // namespace tolvex
