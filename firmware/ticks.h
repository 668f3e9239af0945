// SPDX-License-Identifier: MIT
// Time, in ticks of a quarter of a millisecond. Whoever waits, sleeps.
#pragma once

#include <stdint.h>

#define TICKS_PER_MS 4u

/// Starts timer 2 and the watchdog, which resets the board when nobody rests, reads or writes a
/// byte for a second.
void TicksStart(void);

/// Goes round at 16 seconds: good for differences below that.
uint16_t TicksNow(void);

/// To be called with interrupts off, returns with them on: sleeps until any interrupt, the next
/// tick at the latest. What was found out before the call can't change in between.
void TicksRest(void);

/// At least so many ticks, at most one more.
void TicksWait(uint16_t ticks);
