// SPDX-License-Identifier: MIT
#pragma once

#include "cli/command.h"

namespace tolvex {

/// Erases, programs and verifies the chip, as the Program button does, after everything that can go
/// wrong has been looked at.
class ProgramCommand : public CliCommand {
  public:
    ProgramCommand();
    int Run(Session& session, const Call& call) override;

  private:
    int Prepare(Session& session, const Call& call);
    void TellPlan(Session& session);
};

}  // namespace tolvex
