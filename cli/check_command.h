// SPDX-License-Identifier: MIT
#pragma once

#include "cli/command.h"

namespace tolvex {

/// Goes through HEX files strictly; needs no writer.
class CheckCommand : public CliCommand {
  public:
    CheckCommand();
    int Run(Session& session, const Call& call) override;
};

}  // namespace tolvex
