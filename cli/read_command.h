// SPDX-License-Identifier: MIT
#pragma once

#include "cli/command.h"

namespace tolvex {

/// Reads the whole chip into files, as the Read and Save buttons do.
class ReadCommand : public CliCommand {
  public:
    ReadCommand();
    int Run(Session& session, const Call& call) override;
};

}  // namespace tolvex
