// SPDX-License-Identifier: MIT
#include "chip.h"

#include <stddef.h>

#include "chip_table.h"
#include "pins.h"
#include "ticks.h"

#define MS(count) ((uint16_t)((count)*TICKS_PER_MS))

enum {
    kProgrammingEnable = 0xAC53,
    kChipErase = 0xAC80,
    kReadSignature = 0x3000,
    kReadLockAndFuse = 0x5800,
    kReadFuses = 0x5000,
    kHighByte = 0x0800,  // in the first byte of the Flash instructions
    kReadFlash = 0x2000,
    kWriteFlash = 0x4000,
    kReadEeprom = 0xA000,
    kWriteEeprom = 0xC000,
    kWriteLockOrFuses = 0xAC00,
    kFlashAddressBits = 0x0FFF,
    kEepromAddressBits = 0x01FF,
};

enum {
    kEnableEcho = 0x53,
    kAnyByte = 0xFF,  // where the chip takes any
    kVendor = 0x1E,
    kErased = 0xFF,
    kNothing = 0xFF,  // what reading gives without a chip
    kClocksOfInstruction = 32,
    kResetMs = 21,  // before the first instruction
    kEraseMs = 22,
    kLockOrFusesMs = 22,
};

static uint8_t deviceCode;
static const struct ChipKind* kind;  // null = none in the socket, or not held yet
static bool held;

static uint8_t Exchange(uint8_t out) {
    uint8_t in = 0;
    for (uint8_t bit = 0x80; bit != 0; bit >>= 1) {
        in = (uint8_t)(in << 1 | PinsClock(out & bit));
    }
    return in;
}

/// The first two bytes, the third and the fourth; gives the answer to the fourth.
static uint8_t Instruct(uint16_t head, uint8_t third, uint8_t fourth) {
    Exchange((uint8_t)(head >> 8));
    Exchange((uint8_t)head);
    Exchange(third);
    return Exchange(fourth);
}

static uint8_t InstructAt(uint16_t instruction, uint16_t address, uint8_t byte) {
    return Instruct((uint16_t)(instruction | address >> 8), (uint8_t)address, byte);
}

static bool EnableEchoes(void) {
    Exchange(kProgrammingEnable >> 8);
    Exchange((uint8_t)kProgrammingEnable);
    const uint8_t echo = Exchange(kAnyByte);
    Exchange(kAnyByte);
    return echo == kEnableEcho;
}

/// Null for what no chip says. Whoever tells its signature is what that says. A locked chip answers
/// 00 01 02: it stays the one that was here before it was locked, if the PC still means that one.
static const struct ChipKind* Identify(bool echoes) {
    static const struct ChipKind* known;
    const uint8_t vendor = Instruct(kReadSignature, 0, 0);
    const uint8_t size = Instruct(kReadSignature, 1, 0);
    const uint8_t family = Instruct(kReadSignature, 2, 0);
    const struct ChipKind* silent = ChipKindSilent();
    if (vendor == 0 && size == 1 && family == 2) {
        const bool same = echoes && known != NULL && known->code == deviceCode;
        return same ? known : echoes ? ChipKindLocked(deviceCode) : silent;
    }
    if (vendor != kVendor) {
        return NULL;
    }
    known = ChipKindOf(size, family);
    if (!echoes) {
        return known == silent ? known : NULL;
    }
    return known != NULL ? known : ChipKindLocked(0);
}

static void Reset(void) {
    PinsPulseReset();
    TicksWait(MS(kResetMs));
}

/// For a chip that has missed so many clocks after the reset.
static const struct ChipKind* EnableAfter(uint8_t missedClocks) {
    Reset();
    while (missedClocks > 0) {
        PinsClock(false);
        --missedClocks;
    }
    return Identify(EnableEchoes());
}

/// One clock more at each try reaches any count of clocks that the chip has missed, and the last
/// try is in step again. The first try is not: a chip that hears all and only isn't heard, because
/// the wire of MISO is loose, is not enabled then, and doesn't take what comes out of step for
/// instructions to write.
static const struct ChipKind* EnableInAnyStep(void) {
    Reset();
    for (uint8_t tries = 0; tries < kClocksOfInstruction; ++tries) {
        PinsClock(false);
        if (EnableEchoes()) {
            const struct ChipKind* found = Identify(true);
            if (found != NULL) {
                return found;
            }
        }
    }
    return NULL;
}

/// The AT90S1200 doesn't echo and is known by its signature alone, so where the PC means a chip of
/// its code, each step is tried after a reset of its own.
static const struct ChipKind* Enable(void) {
    const struct ChipKind* found = EnableAfter(0);
    if (found == NULL && deviceCode != ChipKindSilent()->code) {
        return EnableInAnyStep();
    }
    for (uint8_t missed = 1; found == NULL && missed < kClocksOfInstruction; ++missed) {
        found = EnableAfter(missed);
    }
    return found;
}

void ChipSelect(uint8_t code) {
    deviceCode = code;
}

void ChipEnter(void) {
    PinsTake();
    PinsStretchClock(true);
    kind = Enable();
    PinsStretchClock(kind == ChipKindSilent());
    held = true;
}

void ChipLeave(void) {
    PinsRelease();
    kind = NULL;
    held = false;
}

bool ChipIsHeld(void) {
    return held;
}

uint8_t ChipReadSignature(uint8_t index) {
    return kind == NULL ? kNothing : Instruct(kReadSignature, index, 0);
}

static bool TellsWhenWritten(uint8_t byte, const struct BusyValues* busy) {
    return kind->canPoll && byte != kErased && byte != busy->p1 && byte != busy->p2;
}

/// False when the byte doesn't read back in the longest time that a write may take: the chip is
/// locked, wasn't erased, or is gone.
static bool AwaitWritten(uint16_t readInstruction, uint16_t address, uint8_t byte,
                         const struct BusyValues* busy) {
    const uint16_t longest = MS(kind->longestWriteMs);
    if (!TellsWhenWritten(byte, busy)) {
        TicksWait(longest);
        return InstructAt(readInstruction, address, 0) == byte;
    }
    const uint16_t start = TicksNow();
    bool overdue = false;
    while (InstructAt(readInstruction, address, 0) != byte) {
        if (overdue) {
            return false;
        }
        overdue = (uint16_t)(TicksNow() - start) > longest;
    }
    return true;
}

uint8_t ChipReadFlash(uint16_t word, bool high) {
    const uint16_t instruction = high ? kReadFlash | kHighByte : kReadFlash;
    return kind == NULL ? kNothing : InstructAt(instruction, word & kFlashAddressBits, 0);
}

bool ChipWriteFlash(uint16_t word, bool high, uint8_t byte) {
    const uint16_t half = high ? kHighByte : 0;
    if (kind == NULL || byte == kErased) {  // Flash can't be set to ones but by erasing
        return kind != NULL;
    }
    word &= kFlashAddressBits;
    InstructAt(kWriteFlash | half, word, byte);
    return AwaitWritten(kReadFlash | half, word, byte, &kind->flash);
}

uint8_t ChipReadEeprom(uint16_t address) {
    return kind == NULL ? kNothing : InstructAt(kReadEeprom, address & kEepromAddressBits, 0);
}

bool ChipWriteEeprom(uint16_t address, uint8_t byte) {
    if (kind == NULL) {
        return false;
    }
    address &= kEepromAddressBits;
    InstructAt(kWriteEeprom, address, byte);
    return AwaitWritten(kReadEeprom, address, byte, &kind->eeprom);
}

bool ChipErase(void) {
    if (kind == NULL) {
        return false;
    }
    Instruct(kChipErase, 0, 0);
    TicksWait(MS(kEraseMs));
    ChipEnter();  // after an erase the chip wants a reset pulse; and it tells its signature again
    return kind != NULL;
}

static void WriteLockOrFuses(uint8_t byte) {
    Instruct(kWriteLockOrFuses | byte, 0, 0);
    TicksWait(MS(kLockOrFusesMs));
}

bool ChipWriteLock(uint8_t byte) {
    if (kind != NULL && (byte & 0xE0) == 0xE0) {
        WriteLockOrFuses((uint8_t)(0xF9 | (byte & 0x06)));
    }
    return kind != NULL;
}

bool ChipWriteFuses(uint8_t byte) {
    if (kind == NULL || (byte & 0xE0) != 0xA0) {
        return kind != NULL;
    }
    if (kind->fuses == kOneFuse) {
        WriteLockOrFuses((uint8_t)(0xBE | (byte & 0x01)));
    } else if (kind->fuses == kFiveFuses) {
        WriteLockOrFuses(byte);
    }
    return true;
}

uint8_t ChipReadLock(void) {
    if (kind == NULL || kind->fuses == kNoFuses) {
        return kNothing;
    }
    const uint8_t bits = Instruct(kReadLockAndFuse, 0, 0);
    switch (kind->fuses) {
        case kOneFuse:
            return bits | 0x3E;
        case kFiveFuses:
            return bits | 0xF9;
        default:
            return bits;
    }
}

uint8_t ChipReadFuses(void) {
    if (kind == NULL || kind->fuses != kFiveFuses) {
        return kNothing;
    }
    return Instruct(kReadFuses, 0, 0) | 0xE0;
}
