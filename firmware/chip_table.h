// SPDX-License-Identifier: MIT
// What the chips have in common with each other and what not.
#pragma once

#include <stdbool.h>
#include <stdint.h>

/// How a chip hands out its lock and fuse bits.
enum FuseAccess {
    kNoFuses,       ///< it has no fuses and doesn't tell its lock bits
    kOneFuse,       ///< one instruction reads the lock bits in bits 7 and 6 and the fuse in bit 0
    kFiveFuses,     ///< one reads the lock bits in bits 2 and 1, another the fuses in bits 4 to 0
    kUnknownFuses,  ///< one of the two above, so no more than reading the lock bits is safe
};

/// What a byte reads as while it is being written: P1 and later P2. These values, and 0xFF, don't
/// tell whether it is done; any other does.
struct BusyValues {
    uint8_t p1, p2;
};

struct ChipKind {
    uint8_t code;            ///< the PC's device code, which several kinds share
    uint8_t size;            ///< signature byte 1
    uint8_t family;          ///< signature byte 2
    uint8_t longestWriteMs;  ///< tWD_PROG at the lowest supply, and some more
    bool canPoll;            ///< its busy values are known
    struct BusyValues flash;
    struct BusyValues eeprom;
    enum FuseAccess fuses;
};

/// By the signature, which tells more than the PC does; null when no chip has this one.
const struct ChipKind* ChipKindOf(uint8_t size, uint8_t family);
/// What a chip of `code` is when it keeps its signature to itself.
const struct ChipKind* ChipKindLocked(uint8_t code);
/// The AT90S1200, the only one that doesn't echo.
const struct ChipKind* ChipKindSilent(void);
