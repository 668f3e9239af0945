// SPDX-License-Identifier: MIT
#pragma once

#include "cli/command.h"

namespace tolvex {

/// Writes the lock bits, as the settings window does.
class LockCommand : public CliCommand {
  public:
    LockCommand();
    int Run(Session& session, const Call& call) override;
};

}  // namespace tolvex
