// SPDX-License-Identifier: MIT
#include "line.h"

#include <avr/interrupt.h>
#include <avr/io.h>
#include <avr/wdt.h>

#include "ticks.h"

#define BAUD 19200
#include <util/setbaud.h>

#define SILENCE_TICKS (20u * TICKS_PER_MS)

// The PC awaits each reply, so more than one command never waits here.
enum { kRoom = 16 };

static volatile uint8_t waiting[kRoom];
static volatile uint8_t received;  // counts up; its remainder is the place in `waiting`
static volatile bool heard;        // since `LineAwaitSilence` looked last
static volatile bool disturbed;    // until `LineAwaitSilence` returns
static volatile uint8_t taken;

ISR(USART_RX_vect) {
    const bool damaged = UCSR0A & (_BV(FE0) | _BV(DOR0));  // goes with the byte that is read next
    const uint8_t byte = UDR0;
    heard = true;
    if (damaged || (uint8_t)(received - taken) >= kRoom) {
        disturbed = true;
    }
    if (!disturbed) {
        waiting[received % kRoom] = byte;
        ++received;
    }
}

void LineStart(void) {
    UCSR0A = USE_2X ? _BV(U2X0) : 0;
    UBRR0 = UBRR_VALUE;
    UCSR0C = _BV(UCSZ01) | _BV(UCSZ00);
    UCSR0B = _BV(RXEN0) | _BV(TXEN0) | _BV(RXCIE0);
    disturbed = true;
}

enum LineEvent LineRead(uint8_t* byte, uint16_t ticks) {
    wdt_reset();  // a stream without a pause never waits below
    const uint16_t start = TicksNow();
    while (received == taken && !disturbed) {
        if ((uint16_t)(TicksNow() - start) > ticks) {
            return kLineSilent;
        }
        cli();
        if (received == taken && !disturbed) {
            TicksRest();
        }
        sei();
    }
    if (disturbed) {
        return kLineDisturbed;
    }
    *byte = waiting[taken % kRoom];
    ++taken;
    return kLineByte;
}

void LineAwaitSilence(void) {
    uint16_t start = TicksNow();
    for (;;) {
        const bool silent = (uint16_t)(TicksNow() - start) > SILENCE_TICKS;
        cli();
        if (!heard && silent) {
            taken = received;
            disturbed = false;
            sei();
            return;
        }
        if (heard) {
            heard = false;
            sei();
            start = TicksNow();
        } else {
            TicksRest();
        }
    }
}

void LineWrite(uint8_t byte) {
    wdt_reset();
    while (!(UCSR0A & _BV(UDRE0))) {
    }
    UDR0 = byte;
}
