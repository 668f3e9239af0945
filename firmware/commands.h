// SPDX-License-Identifier: MIT
// The one-letter commands of the PC.
#pragma once

#include <stdint.h>

/// Awaits the command's arguments, carries it out and answers. Without the arguments within a
/// second the command is forgotten: the PC that began it has gone.
void CommandsCarryOut(uint8_t letter);
