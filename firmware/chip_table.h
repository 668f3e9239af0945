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

struct ChipKind {
    uint8_t code;            ///< the PC's device code, which several kinds share
    uint8_t size;            ///< signature byte 1
    uint8_t family;          ///< signature byte 2
    uint8_t longestWriteMs;  ///< of a byte, at the lowest supply
    bool zeroCannotBePolled;
    enum FuseAccess fuses;
};

/// By the signature, which tells more than the PC does; null when no chip has this one.
const struct ChipKind* ChipKindOf(uint8_t size, uint8_t family);
/// What a chip of `code` is when it keeps its signature to itself. `mute` chips don't echo.
const struct ChipKind* ChipKindHidden(uint8_t code, bool mute);
