// SPDX-License-Identifier: MIT
#include "device/fuse_encoding.h"

#include <algorithm>

namespace tolvex {

namespace {

/// A list's entry number in the bits of a fuse byte.
struct FuseField {
    FuseGroup group;
    OptionList list;
    int shift;
    std::uint8_t mask;  ///< before the shift
};

/// In the order in which a read selects the lists.
constexpr FuseField kFuseFields[] = {
    {FuseGroup::FSTRT, OptionList::FSTRT, 0, 0x01},
    {FuseGroup::RCEN, OptionList::RCEN, 0, 0x01},
    {FuseGroup::BOD_CKSEL, OptionList::CKSEL, 0, 0x07},
    {FuseGroup::BOD_CKSEL, OptionList::BODEN, 3, 0x01},
    {FuseGroup::BOD_CKSEL, OptionList::BODLEVEL, 4, 0x01},
};

/// The lock list's entries as they are written, and as 'F' gives them back from either kind of
/// chip.
struct LockRow {
    std::uint8_t written;
    std::uint8_t highBits;  ///< of `kHighLockMask`: FSTRT and RCEN chips
    std::uint8_t lowBits;   ///< of `kLowLockMask`: BOD_CKSEL chips
};

constexpr std::uint8_t kUnlocked = 0xFF;
constexpr std::uint8_t kHighLockMask = 0xC0;
constexpr std::uint8_t kLowLockMask = 0x06;
constexpr LockRow kLockRows[] = {
    {0xF9, 0x00, 0x00},
    {0xFD, 0x40, 0x04},
    {kUnlocked, 0xC0, 0x06},
};

/// The bits of a fuse byte that no list sets.
constexpr std::uint8_t FixedFuseBits(FuseGroup group) {
    return group == FuseGroup::BOD_CKSEL ? 0xA0 : 0xBE;
}

}  // namespace

std::uint8_t EncodeLock(int entry) {
    // Nothing selected must not lock the chip.
    const bool known = entry >= 0 && entry < static_cast<int>(std::size(kLockRows));
    return known ? kLockRows[entry].written : kUnlocked;
}

std::optional<std::uint8_t> EncodeFuses(FuseGroup group, const OptionChoice& options) {
    if (group == FuseGroup::LockOnly) {
        return std::nullopt;
    }
    int byte = FixedFuseBits(group);
    for (const FuseField& field : kFuseFields) {
        if (field.group == group) {
            byte |= (options[field.list] & field.mask) << field.shift;
        }
    }
    return static_cast<std::uint8_t>(byte);
}

void DecodeFuses(FuseGroup group, std::uint8_t byte, OptionChoice& options) {
    for (const FuseField& field : kFuseFields) {
        if (field.group == group) {
            options[field.list] = (byte >> field.shift) & field.mask;
        }
    }
}

void DecodeLock(FuseGroup group, std::uint8_t byte, OptionChoice& options) {
    const bool low = group == FuseGroup::BOD_CKSEL;
    const int bits = byte & (low ? kLowLockMask : kHighLockMask);
    const auto row =
        std::ranges::find(kLockRows, bits, low ? &LockRow::lowBits : &LockRow::highBits);
    if (row != std::end(kLockRows)) {
        options[OptionList::LockBit] = static_cast<int>(row - std::begin(kLockRows));
    }
}

}  // namespace tolvex
