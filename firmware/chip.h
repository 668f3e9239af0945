// SPDX-License-Identifier: MIT
// The chip in the socket: serial programming by four-byte instructions. Every function returns when
// the chip has finished. Without a chip, reading gives ones.
#pragma once

#include <stdbool.h>
#include <stdint.h>

/// The PC's device code; it matters for locked chips, and for those that can't be heard at once.
void ChipSelect(uint8_t code);

/// Takes the lines, holds the chip in reset and makes it listen.
void ChipEnter(void);
/// Lets the chip run and releases the lines.
void ChipLeave(void);
bool ChipIsHeld(void);

/// `index` 0 = vendor, 1 = size, 2 = family.
uint8_t ChipReadSignature(uint8_t index);
/// Word addresses; those beyond the chip's size wrap, because the chip ignores the upper bits.
uint8_t ChipReadFlash(uint16_t word, bool high);
uint8_t ChipReadEeprom(uint16_t address);

// Writing: false when the byte doesn't read back, or there is no chip.

/// 0xFF is left out and counts as written.
bool ChipWriteFlash(uint16_t word, bool high, uint8_t byte);
bool ChipWriteEeprom(uint16_t address, uint8_t byte);

// What can't be read back from every chip: false when there is no chip.

/// Flash, EEPROM and lock bits.
bool ChipErase(void);
/// In the shape 11111 LB2 LB1 1; another shape is no lock byte and is left alone.
bool ChipWriteLock(uint8_t byte);
/// In the shape 101fffff; another shape is no fuse byte and is left alone.
bool ChipWriteFuses(uint8_t byte);

/// As the chip gives them, bits without a meaning 1; all 1 when the chip can't tell.
uint8_t ChipReadLock(void);
uint8_t ChipReadFuses(void);
