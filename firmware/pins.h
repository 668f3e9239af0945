// SPDX-License-Identifier: MIT
// The wires between the board and the chip, all of them on port B.
#pragma once

#include <stdbool.h>
#include <stdint.h>

/// All lines to the chip float, the clock output rests, the LED is off.
void PinsStart(void);

/// Takes the lines: RESET low first, because a chip that runs in its circuit may drive the others
/// until it is in reset; then SCK and MOSI low, MISO pulled up so that an empty socket reads as
/// ones, and the clock for chips without their own on its pin.
void PinsTake(void);
/// RESET goes up, then every line floats and the clock rests.
void PinsRelease(void);

/// RESET up and down again. To be called with SCK low, which it is between two clocks.
void PinsPulseReset(void);

/// Whether SCK stays high for long from now on, as the AT90S1200 wants it.
void PinsStretchClock(bool stretch);
/// One clock for the chip: puts `bit` on MOSI, then SCK goes up and down again. Gives what the chip
/// had on MISO.
bool PinsClock(bool bit);

void PinsSetLed(bool on);
