// SPDX-License-Identifier: MIT
#pragma once

#include <QStringList>

#include "cli/session.h"

namespace tolvex {

/// Parses the command line, runs the command and gives the exit status. `arguments` begin with the
/// program's name.
int RunCommandLine(const QStringList& arguments, const CliSurroundings& around);

}  // namespace tolvex
