// SPDX-License-Identifier: MIT
// A writer board for AT90S chips: an ATmega328P at 16 MHz, such as an Arduino Uno or Nano, with six
// wires to the chip.
#include <avr/interrupt.h>
#include <stdbool.h>
#include <stdint.h>

#include "chip.h"
#include "commands.h"
#include "line.h"
#include "pins.h"
#include "ticks.h"

// The longest pause that the PC makes in the middle of its work is one second.
#define ABANDONED_TICKS (5000u * TICKS_PER_MS)

int main(void) {
    PinsStart();
    TicksStart();
    LineStart();
    sei();
    for (;;) {
        uint8_t letter;
        if (LineRead(&letter, ABANDONED_TICKS)) {
            CommandsCarryOut(letter);
        } else if (ChipIsHeld()) {
            ChipLeave();  // the PC has gone
        }
    }
}
