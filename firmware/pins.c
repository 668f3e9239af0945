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

// SCK must be high and low for more than two clocks of the chip each: with 5 us and what the
// instructions around it take, a chip may run at 400 kHz or anything above. The AT90S1200 is
// content with one clock low but wants more than four high, and for the same 400 kHz it gets 6 us
// more.
#define HALF_CLOCK_US 5
#define STRETCH_US 6
// More than two clocks of a chip at 400 kHz, and time for the capacitor that some circuits have at
// RESET. Most chips need longer to start their program.
#define RESET_US 200
#define CHIP_CLOCK_HZ 1000000UL

static bool stretchClock;

static void StartClock(void) {
    TCNT1 = 0;
    OCR1A = F_CPU / 2 / CHIP_CLOCK_HZ - 1;
    TCCR1A = _BV(COM1A0);             // toggle the pin at each match
    TCCR1B = _BV(WGM12) | _BV(CS10);  // start again at each match; no prescaler
}

static void StopClock(void) {
    TCCR1B = 0;
    TCCR1A = 0;
}

static void SetReset(bool high) {
    if (high) {
        PORTB |= kReset;
    } else {
        PORTB &= (uint8_t)~kReset;
    }
}

void PinsStart(void) {
    StopClock();
    PORTB = 0;
    DDRB = kLed;
}

void PinsTake(void) {
    SetReset(false);
    DDRB |= kReset;
    _delay_us(RESET_US);
    PORTB = (uint8_t)((PORTB & kLed) | kMiso);
    DDRB = kLed | kOutputs;
    StartClock();
}

void PinsRelease(void) {
    SetReset(true);
    StopClock();
    DDRB = kLed;
    PORTB &= kLed;  // without this the pull-ups stay
}

void PinsPulseReset(void) {
    SetReset(true);
    _delay_us(RESET_US);
    SetReset(false);
}

void PinsStretchClock(bool stretch) {
    stretchClock = stretch;
}

bool PinsClock(bool bit) {
    if (bit) {
        PORTB |= kMosi;
    } else {
        PORTB &= (uint8_t)~kMosi;
    }
    _delay_us(HALF_CLOCK_US);
    PORTB |= kSck;
    _delay_us(HALF_CLOCK_US);
    if (stretchClock) {
        _delay_us(STRETCH_US);
    }
    const bool answer = PINB & kMiso;
    PORTB &= (uint8_t)~kSck;
    return answer;
}

void PinsSetLed(bool on) {
    if (on) {
        PORTB |= kLed;
    } else {
        PORTB &= (uint8_t)~kLed;
    }
}
