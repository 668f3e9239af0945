// SPDX-License-Identifier: MIT
#pragma once

#include "cli/command.h"

namespace tolvex {

/// Reads or writes lock and fuse bits, as the buttons of the settings window do.
class FusesCommand : public CliCommand {
  public:
    FusesCommand();
    int Run(Session& session, const Call& call) override;
};

}  // namespace tolvex
