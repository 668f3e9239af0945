// SPDX-License-Identifier: MIT
#pragma once

#include "cli/command.h"

namespace tolvex {

/// Erases, programs and verifies the chip, as the Program button does.
class ProgramCommand : public CliCommand {
  public:
    ProgramCommand();
    int Run(Session& session, const Call& call) override;
};

}  // namespace tolvex
