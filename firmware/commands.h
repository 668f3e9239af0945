// SPDX-License-Identifier: MIT
// The one-letter commands of the PC.
#pragma once

#include <stdint.h>

/// Awaits the command's arguments, carries it out and answers; "?" for what can't be done or could
/// not be confirmed. Without the arguments within a second, or when they were damaged, the command
/// is forgotten.
void CommandsCarryOut(uint8_t letter);
