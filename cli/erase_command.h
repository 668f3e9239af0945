// SPDX-License-Identifier: MIT
#pragma once

#include "cli/command.h"

namespace tolvex {

/// Erases the chip, as the Erase button does.
class EraseCommand : public CliCommand {
  public:
    EraseCommand();
    int Run(Session& session, const Call& call) override;
};

}  // namespace tolvex
