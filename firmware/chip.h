// SPDX-License-Identifier: MIT
// The chip in the socket: serial programming by four-byte instructions. Every function returns when
// the chip has finished. Without a chip, reading gives ones and writing does nothing.
#pragma once

#include <stdbool.h>
#include <stdint.h>

/// The PC's device code; it matters for protected chips only.
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
void ChipWriteFlash(uint16_t word, bool high, uint8_t byte);
uint8_t ChipReadEeprom(uint16_t address);
void ChipWriteEeprom(uint16_t address, uint8_t byte);
/// Flash, EEPROM and lock bits.
void ChipErase(void);

/// In the shape 11111 LB2 LB1 1; another shape is no lock byte and is left alone.
void ChipWriteLock(uint8_t byte);
/// In the shape 101fffff; another shape is no fuse byte and is left alone.
void ChipWriteFuses(uint8_t byte);
/// As the chip gives them, bits without a meaning 1; all 1 when the chip can't tell.
uint8_t ChipReadLock(void);
uint8_t ChipReadFuses(void);
