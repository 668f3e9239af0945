// SPDX-License-Identifier: MIT
#pragma once

#include "cli/command.h"

namespace tolvex {

/// Finds the writer and the chip in the socket.
class DetectCommand : public CliCommand {
  public:
    DetectCommand();
    int Run(Session& session, const Call& call) override;
};

}  // namespace tolvex
