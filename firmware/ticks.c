// SPDX-License-Identifier: MIT
#include "ticks.h"

#include <avr/interrupt.h>
#include <avr/io.h>
#include <avr/sleep.h>
#include <avr/wdt.h>

#define PRESCALER 64
#define TICKS_PER_SECOND (1000UL * TICKS_PER_MS)

static volatile uint16_t ticks;

ISR(TIMER2_COMPA_vect) {
    ++ticks;
}

void TicksStart(void) {
    MCUSR = 0;  // a watchdog that bit would stay on and bite again
    wdt_enable(WDTO_1S);
    SMCR = 0;  // sleep is idling: the timers and the UART go on
    OCR2A = F_CPU / PRESCALER / TICKS_PER_SECOND - 1;
    TCCR2A = _BV(WGM21);  // start again at each match
    TCCR2B = _BV(CS22);   // F_CPU / 64
    TIMSK2 = _BV(OCIE2A);
}

uint16_t TicksNow(void) {
    cli();
    const uint16_t now = ticks;
    sei();
    return now;
}

void TicksRest(void) {
    wdt_reset();
    sleep_enable();
    sei();  // takes effect after the next instruction, so nothing slips in before the sleep
    sleep_cpu();
    sleep_disable();
}

void TicksWait(uint16_t count) {
    const uint16_t start = TicksNow();
    // The first tick may have been about to end.
    while ((uint16_t)(TicksNow() - start) <= count) {
        cli();
        TicksRest();
    }
}
