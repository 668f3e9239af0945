// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace tolvex {

/// A table in Markdown: how long the tool takes to program and verify each chip, filled with random
/// bytes, through the firmware in `hexFile` and through the simulated board, in simulated time. Or
/// what went wrong.
QString ProgrammingTimes(const QString& hexFile);

}  // namespace tolvex
