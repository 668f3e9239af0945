// SPDX-License-Identifier: MIT
// The serial line to the PC: 19200 baud, 8 data bits, no parity, 1 stop bit.
#pragma once

#include <stdbool.h>
#include <stdint.h>

enum LineEvent {
    kLineByte,       ///< a byte came
    kLineSilent,     ///< none came in the given time
    kLineDisturbed,  ///< a byte was damaged or lost, so nobody knows what the next one means
};

/// Starts to receive. What a boot loader has left in the UART, or half a byte that was under way,
/// counts as damage.
void LineStart(void);

/// Waits for the next byte from the PC, for so many ticks at most.
enum LineEvent LineRead(uint8_t* byte, uint16_t ticks);
/// After the start or `kLineDisturbed`: throws everything away until nothing has come for 20 ms.
/// What comes then is a command again.
void LineAwaitSilence(void);

/// Returns as soon as the UART has taken the byte.
void LineWrite(uint8_t byte);
