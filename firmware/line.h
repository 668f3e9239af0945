// SPDX-License-Identifier: MIT
// The serial line to the PC: 19200 baud, 8 data bits, no parity, 1 stop bit.
#pragma once

#include <stdbool.h>
#include <stdint.h>

void LineStart(void);

/// The next byte from the PC; false when none came in so many ticks.
bool LineRead(uint8_t* byte, uint16_t ticks);
void LineWrite(uint8_t byte);
