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
    kEnableTries = 32,
    kMostMissedClocks = 8,
    kResetPulseMs = 1,
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
        in = (uint8_t)(in << 1) | PinsClock(out & bit);
    }
    return in;
}

/// The first two bytes, the third and the fourth; gives the answer to the fourth.
static uint8_t Instruct(uint16_t head, uint8_t third, uint8_t fourth) {
    Exchange(head >> 8);
    Exchange((uint8_t)head);
    Exchange(third);
    return Exchange(fourth);
}

static uint8_t InstructAt(uint16_t instruction, uint16_t address, uint8_t byte) {
    return Instruct(instruction | (address >> 8), (uint8_t)address, byte);
}

static bool EnableEchoes(void) {
    Exchange(kProgrammingEnable >> 8);
    Exchange((uint8_t)kProgrammingEnable);
    const uint8_t echo = Exchange(0);
    Exchange(0);
    return echo == kEnableEcho;
}

/// Whoever tells its signature is what that says. A protected chip answers 00 01 02: it stays the
/// one that was here before it was protected, if the PC still means that one.
static const struct ChipKind* Identify(bool mute) {
    static const struct ChipKind* known;
    const uint8_t vendor = Instruct(kReadSignature, 0, 0);
    const uint8_t size = Instruct(kReadSignature, 1, 0);
    const uint8_t family = Instruct(kReadSignature, 2, 0);
    if (vendor == 0 && size == 1 && family == 2) {
        const bool same = !mute && known != NULL && known->code == deviceCode;
        return same ? known : ChipKindHidden(deviceCode, mute);
    }
    known = ChipKindOf(size, family);
    if (mute) {
        return known == ChipKindHidden(deviceCode, true) ? known : NULL;
    }
    return known != NULL ? known : ChipKindHidden(0, false);
}

static void Reset(void) {
    PinsSetReset(true);
    TicksWait(MS(kResetPulseMs));
    PinsSetReset(false);
    TicksWait(MS(kResetMs));
}

/// The AT90S1200 doesn't echo but tells its signature. Any other chip that doesn't echo may have
/// missed clocks, so it gets some more before the next try. Each try begins with a reset: a chip
/// that listens and only isn't heard, because a wire is loose, would take what comes out of step
/// for instructions to write.
static const struct ChipKind* Enable(void) {
    for (uint8_t tries = 0; tries < kEnableTries; ++tries) {
        Reset();
        for (uint8_t extra = tries % kMostMissedClocks; extra > 0; --extra) {
            PinsClock(false);
        }
        const bool echoes = EnableEchoes();
        const struct ChipKind* found = Identify(!echoes);
        if (found != NULL) {
            return found;
        }
    }
    return NULL;
}

void ChipSelect(uint8_t code) {
    deviceCode = code;
}

void ChipEnter(void) {
    PinsTake();
    kind = Enable();
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
    return kind == NULL ? 0xFF : Instruct(kReadSignature, index, 0);
}

/// While a byte is being written, it reads as 0x7F, 0x80, 0xFF or, on some chips, 0x00: those
/// values don't tell whether it is done.
static bool CanBePolled(uint8_t byte) {
    const bool zeroIsFine = byte != 0x00 || !kind->zeroCannotBePolled;
    return byte != 0x7F && byte != 0x80 && byte != 0xFF && zeroIsFine;
}

/// A protected chip, or one that was not erased, never shows the byte: the longest time ends it.
static void AwaitWritten(uint16_t readInstruction, uint16_t address, uint8_t byte) {
    const uint16_t longest = MS(kind->longestWriteMs);
    if (!CanBePolled(byte)) {
        TicksWait(longest);
        return;
    }
    const uint16_t start = TicksNow();
    while (InstructAt(readInstruction, address, 0) != byte &&
           (uint16_t)(TicksNow() - start) <= longest) {
        TicksWait(0);
    }
}

uint8_t ChipReadFlash(uint16_t word, bool high) {
    const uint16_t instruction = high ? kReadFlash | kHighByte : kReadFlash;
    return kind == NULL ? 0xFF : InstructAt(instruction, word & kFlashAddressBits, 0);
}

void ChipWriteFlash(uint16_t word, bool high, uint8_t byte) {
    const uint16_t half = high ? kHighByte : 0;
    if (kind == NULL || byte == 0xFF) {  // Flash can't be set to ones but by erasing
        return;
    }
    word &= kFlashAddressBits;
    InstructAt(kWriteFlash | half, word, byte);
    AwaitWritten(kReadFlash | half, word, byte);
}

uint8_t ChipReadEeprom(uint16_t address) {
    return kind == NULL ? 0xFF : InstructAt(kReadEeprom, address & kEepromAddressBits, 0);
}

void ChipWriteEeprom(uint16_t address, uint8_t byte) {
    if (kind == NULL) {
        return;
    }
    address &= kEepromAddressBits;
    InstructAt(kWriteEeprom, address, byte);
    AwaitWritten(kReadEeprom, address, byte);
}

void ChipErase(void) {
    if (kind == NULL) {
        return;
    }
    Instruct(kChipErase, 0, 0);
    TicksWait(MS(kEraseMs));
    ChipEnter();  // after an erase the chip wants a reset pulse; and it tells its signature again
}

static void WriteLockOrFuses(uint8_t byte) {
    Instruct(kWriteLockOrFuses | byte, 0, 0);
    TicksWait(MS(kLockOrFusesMs));
}

void ChipWriteLock(uint8_t byte) {
    if (kind != NULL && (byte & 0xE0) == 0xE0) {
        WriteLockOrFuses(0xF9 | (byte & 0x06));
    }
}

void ChipWriteFuses(uint8_t byte) {
    if (kind == NULL || (byte & 0xE0) != 0xA0) {
        return;
    }
    if (kind->fuses == kOneFuse) {
        WriteLockOrFuses(0xBE | (byte & 0x01));
    } else if (kind->fuses == kFiveFuses) {
        WriteLockOrFuses(byte);
    }
}

uint8_t ChipReadLock(void) {
    if (kind == NULL || kind->fuses == kNoFuses) {
        return 0xFF;
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
        return 0xFF;
    }
    return Instruct(kReadFuses, 0, 0) | 0xE0;
}
