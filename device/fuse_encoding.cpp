// SPDX-License-Identifier: MIT
#include "device/fuse_encoding.h"

#include <algorithm>
#include <span>

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

constexpr std::uint8_t kUnlocked = 0xFF;
/// The lock list's entries as they are written.
constexpr std::uint8_t kLockBytes[] = {0xF9, 0xFD, kUnlocked};
// The bits of them that 'F' gives back: from FSTRT and RCEN chips, and from BOD_CKSEL chips.
constexpr std::uint8_t kHighLockMask = 0xC0, kHighLockBits[] = {0x00, 0x40, 0xC0};
constexpr std::uint8_t kLowLockMask = 0x06, kLowLockBits[] = {0x00, 0x04, 0x06};

/// The bits of a fuse byte that no list sets.
constexpr std::uint8_t FixedFuseBits(FuseGroup group) {
    return group == FuseGroup::BOD_CKSEL ? 0xA0 : 0xBE;
}

}  // namespace

std::uint8_t EncodeLock(int entry) {
    // Nothing selected must not lock the chip.
    const bool known = entry >= 0 && entry < static_cast<int>(std::size(kLockBytes));
    return known ? kLockBytes[entry] : kUnlocked;
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
    const std::span<const std::uint8_t> entries = low ? kLowLockBits : kHighLockBits;
    const auto entry = std::ranges::find(entries, bits);
    if (entry != entries.end()) {
        options[OptionList::LockBit] = static_cast<int>(entry - entries.begin());
    }
}

}  // namespace tolvex
