// SPDX-License-Identifier: MIT
#pragma once

#include "cli/command.h"

namespace tolvex {

/// Lists the COM numbers and what stands behind them.
class PortsCommand : public CliCommand {
  public:
    PortsCommand();
    int Run(Session& session, const Call& call) override;
};

}  // namespace tolvex
