// SPDX-License-Identifier: MIT
#pragma once

#include "cli/command.h"

namespace tolvex {

/// Finds out why a port does not work, and says how to mend it.
class DoctorCommand : public CliCommand {
  public:
    DoctorCommand();
    int Run(Session& session, const Call& call) override;
};

}  // namespace tolvex
