// SPDX-License-Identifier: MIT
#pragma once

#include "cli/command.h"

namespace tolvex {

/// Compares the whole chip with files, as the Verify button does.
class VerifyCommand : public CliCommand {
  public:
    VerifyCommand();
    int Run(Session& session, const Call& call) override;
};

}  // namespace tolvex
