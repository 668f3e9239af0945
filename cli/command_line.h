// SPDX-License-Identifier: MIT
#pragma once

#include <QStringList>

#include "cli/result.h"
#include "cli/surroundings.h"

namespace tolvex {

/// Parses the command line, runs the command and gives the exit status. `arguments` begin with the
/// program's name.
ExitStatus RunCommandLine(const QStringList& arguments, const CliSurroundings& around);

}  // namespace tolvex
