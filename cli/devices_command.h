// SPDX-License-Identifier: MIT
#pragma once

#include "cli/command.h"

namespace tolvex {

/// Lists the catalogue.
class DevicesCommand : public CliCommand {
  public:
    DevicesCommand();
    int Run(Session& session, const Call& call) override;
};

}  // namespace tolvex
