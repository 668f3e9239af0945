// SPDX-License-Identifier: MIT
#pragma once

#include "cli/chip_access.h"
#include "cli/fixed_settings.h"
#include "cli/stoppable_clock.h"
#include "cli/terminal_user_interface.h"

namespace tolvex {

/// One run of one command: the workbench with a terminal around it.
class Session {
  public:
    /// Both are borrowed.
    Session(const CliSurroundings& around, const CommonOptions& options, Output& output);
    Session(const Session&) = delete;

    const CliSurroundings& Around() const { return around_; }
    const std::optional<ChosenPort>& Port() const { return port_; }
    /// A signal has ended the run.
    bool Stopped() const { return record_.Stopped(); }
    /// The device was named or is stored; otherwise it is the first of the list.
    bool DeviceChosen() const { return deviceChosen_; }
    /// The signal that has come; 0 = none.
    int Signal() const { return around_.signal(); }
    /// For a command that works on one chip after the other. From now on a signal ends no operation
    /// under way: the command asks for it between two chips.
    void HoldSignals() { held_ = true; }
    /// What was said, recorded and proven of the last chip is forgotten, and the writer leaves
    /// programming mode if it was stuck there.
    void BeginChip();
    EventClock::Instant Now() const { return clock_.Now(); }
    /// Since the run began.
    std::chrono::duration<double> Elapsed() const { return clock_.Now() - start_; }

    /// Leaves the writer as it should be, tells how the command ended, and gives the exit status.
    ExitStatus Finish(const Status& failed);

  private:
    /// Records the line from now on if that was asked for.
    Status OpenTrace();
    void LeaveWriter();
    void ReportFindings();

    const CliSurroundings& around_;
    AppDir folders_;  ///< none: nothing is listed
    FixedSettings settings_;
    std::optional<ChosenPort> port_;
    bool deviceChosen_;
    std::optional<QString> trace_;
    bool replaceTrace_;
    bool held_ = false;
    TracedPort line_;
    StoppableClock clock_;
    EventClock::Instant start_;
    ChipRecord record_;
    TerminalUserInterface ui_;

  public:
    Output& output;
    Workbench bench;
    ChipAccess access;
};

}  // namespace tolvex
