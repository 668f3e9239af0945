// SPDX-License-Identifier: MIT
// A writer board for AT90S chips: an ATmega328P at 16 MHz, such as an Arduino Uno R3 or Nano, with
// seven wires to the chip.
//
// Of the 2,048 bytes of RAM 291 are static (avr-size) and at most 63 are stack, an interrupt on top
// of a command included (avr-gcc -fstack-usage, summed up along the deepest calls).
#include <avr/interrupt.h>
#include <stdbool.h>
#include <stdint.h>

#include "chip.h"
#include "commands.h"
#include "line.h"
#include "pins.h"
#include "ticks.h"

// After a reply that got lost the PC waits five seconds and then goes on with its work.
#define ABANDONED_TICKS (9000u * TICKS_PER_MS)

int main(void) {
    PinsStart();
    TicksStart();
    LineStart();
    sei();
    for (;;) {
        uint8_t letter;
        switch (LineRead(&letter, ABANDONED_TICKS)) {
            case kLineByte:
                CommandsCarryOut(letter);
                break;
            case kLineDisturbed:
                LineAwaitSilence();
                break;
            case kLineSilent:
                if (ChipIsHeld()) {
                    ChipLeave();  // the PC has gone
                }
                break;
        }
    }
}
