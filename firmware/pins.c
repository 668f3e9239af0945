// SPDX-License-Identifier: MIT
#include "pins.h"

#include <avr/io.h>
#include <util/delay.h>

// Names as on an Arduino Uno or Nano.
enum {
    kLed = _BV(PB0),    // D8
    kClock = _BV(PB1),  // D9, the output of timer 1
    kReset = _BV(PB2),  // D10
    kMosi = _BV(PB3),   // D11
    kMiso = _BV(PB4),   // D12
    kSck = _BV(PB5),    // D13
    kOutputs = kClock | kReset | kMosi | kSck
};

// SCK must be high and low for more than two clocks of the chip each: with 5 us a chip may run at
// anything above 400 kHz.
#define HALF_CLOCK_US 5
#define CHIP_CLOCK_HZ 1000000UL

static void StartClock(void) {
    OCR1A = F_CPU / 2 / CHIP_CLOCK_HZ - 1;
    TCCR1A = _BV(COM1A0);             // toggle the pin at each match
    TCCR1B = _BV(WGM12) | _BV(CS10);  // start again at each match; no prescaler
}

static void StopClock(void) {
    TCCR1B = 0;
    TCCR1A = 0;
}

void PinsStart(void) {
    StopClock();
    PORTB = 0;
    DDRB = kLed;
}

void PinsTake(void) {
    PORTB = (PORTB & kLed) | kReset | kMiso;
    DDRB = kLed | kOutputs;
    StartClock();
}

void PinsRelease(void) {
    PinsSetReset(true);
    StopClock();
    DDRB = kLed;
    PORTB &= kLed;  // without this the pull-ups stay
}

void PinsSetReset(bool high) {
    if (high) {
        PORTB |= kReset;
    } else {
        PORTB &= ~kReset;
    }
}

bool PinsClock(bool bit) {
    if (bit) {
        PORTB |= kMosi;
    } else {
        PORTB &= ~kMosi;
    }
    _delay_us(HALF_CLOCK_US);
    PORTB |= kSck;
    _delay_us(HALF_CLOCK_US);
    const bool answer = PINB & kMiso;
    PORTB &= ~kSck;
    return answer;
}

void PinsSetLed(bool on) {
    if (on) {
        PORTB |= kLed;
    } else {
        PORTB &= ~kLed;
    }
}
