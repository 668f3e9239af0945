// SPDX-License-Identifier: MIT
// The wires between the board and the chip, all of them on port B.
#pragma once

#include <stdbool.h>
#include <stdint.h>

/// All lines to the chip float, the clock output rests, the LED is off.
void PinsStart(void);

/// Takes the lines: SCK and MOSI low, RESET high, MISO pulled up so that an empty socket reads as
/// ones, and the clock for chips without their own on its pin.
void PinsTake(void);
/// RESET goes up, then every line floats and the clock rests.
void PinsRelease(void);

void PinsSetReset(bool high);
/// One clock for the chip: puts `bit` on MOSI, then SCK goes up and down again. Gives what the chip
/// had on MISO.
bool PinsClock(bool bit);

void PinsSetLed(bool on);
