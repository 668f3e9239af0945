// SPDX-License-Identifier: MIT
#include "chip_table.h"

#include <stddef.h>

enum { kHidden = 0 };  // in place of a signature: a locked chip

// clang-format off
static const struct ChipKind kKinds[] = {
    // code  size     family   ms  poll   Flash P1, P2  EEPROM P1, P2 fuses
    {0x11, 0x90,    0x01,    10, true,  {0xFF, 0xFF}, {0x00, 0xFF}, kNoFuses},       // AT90S1200
    {0x11, 0x91,    0x02,    22, true,  {0xFF, 0xFF}, {0x00, 0xFF}, kOneFuse},       // AT90S2323
    {0x11, 0x91,    0x03,    22, true,  {0xFF, 0xFF}, {0x00, 0xFF}, kOneFuse},       // AT90S2343
    {0x11, kHidden, kHidden, 22, false, {0, 0},       {0, 0},       kOneFuse},       // it echoes
    {0x21, 0x91,    0x01,    10, true,  {0x7F, 0x7F}, {0x80, 0x7F}, kNoFuses},       // AT90S2313
    {0x21, 0x92,    0x01,    10, true,  {0x7F, 0x7F}, {0x80, 0x7F}, kNoFuses},       // AT90S4414
    {0x21, 0x93,    0x01,    10, true,  {0x7F, 0x7F}, {0x80, 0x7F}, kNoFuses},       // AT90S8515
    {0x21, kHidden, kHidden, 10, false, {0, 0},       {0, 0},       kNoFuses},
    {0x22, 0x91,    0x05,    22, true,  {0xFF, 0xFF}, {0x00, 0xFF}, kFiveFuses},     // AT90S2333
    {0x22, 0x92,    0x03,    22, true,  {0xFF, 0xFF}, {0x00, 0xFF}, kFiveFuses},     // AT90S4433
    {0x22, 0x93,    0x03,    22, true,  {0xFF, 0xFF}, {0x00, 0xFF}, kOneFuse},       // AT90S8535
    {0x22, kHidden, kHidden, 22, false, {0, 0},       {0, 0},       kUnknownFuses},
    {0,    kHidden, kHidden, 22, false, {0, 0},       {0, 0},       kNoFuses},       // any other code
};
// clang-format on

enum { kKindCount = sizeof kKinds / sizeof kKinds[0] };

const struct ChipKind* ChipKindOf(uint8_t size, uint8_t family) {
    for (uint8_t i = 0; i < kKindCount; ++i) {
        if (kKinds[i].size == size && kKinds[i].family == family && size != kHidden) {
            return &kKinds[i];
        }
    }
    return NULL;
}

const struct ChipKind* ChipKindLocked(uint8_t code) {
    const struct ChipKind* kind = kKinds;
    while (kind->size != kHidden || (kind->code != code && kind->code != 0)) {
        ++kind;
    }
    return kind;
}

const struct ChipKind* ChipKindSilent(void) {
    return &kKinds[0];
}
