// SPDX-License-Identifier: MIT
#include "line.h"

#include <avr/interrupt.h>
#include <avr/io.h>

#include "ticks.h"

#define BAUD 19200
#include <util/setbaud.h>

// The PC awaits each reply, so more than one command never waits here.
enum { kRoom = 16 };

static volatile uint8_t waiting[kRoom];
static volatile uint8_t received;  // counts up; its remainder is the place in the room
static uint8_t taken;

ISR(USART_RX_vect) {
    const bool broken = UCSR0A & (_BV(FE0) | _BV(DOR0));
    const uint8_t byte = UDR0;
    if (!broken && (uint8_t)(received - taken) < kRoom) {
        waiting[received % kRoom] = byte;
        ++received;
    }
}

void LineStart(void) {
    UBRR0 = UBRR_VALUE;
    UCSR0A = USE_2X ? _BV(U2X0) : 0;
    UCSR0C = _BV(UCSZ01) | _BV(UCSZ00);
    UCSR0B = _BV(RXEN0) | _BV(TXEN0) | _BV(RXCIE0);
}

bool LineRead(uint8_t* byte, uint16_t ticks) {
    const uint16_t start = TicksNow();
    while (received == taken) {
        if ((uint16_t)(TicksNow() - start) > ticks) {
            return false;
        }
        cli();
        if (received == taken) {
            TicksRest();
        }
        sei();
    }
    *byte = waiting[taken % kRoom];
    ++taken;
    return true;
}

void LineWrite(uint8_t byte) {
    while (!(UCSR0A & _BV(UDRE0))) {
    }
    UDR0 = byte;
}
