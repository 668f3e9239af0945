// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>

#include "base/chip_data.h"

namespace tolvex {

/// Between the entries of the lock and fuse lists and the bytes that the writer takes and gives.

/// Entry 0 to 2 of the lock list as 'l' takes it.
std::uint8_t EncodeLock(int entry);
/// The fuse lists of `group` as 'f' takes them; empty for a group without fuses.
std::optional<std::uint8_t> EncodeFuses(FuseGroup group, const OptionChoice& options);
/// Selects the fuse lists of `group` from the byte that carries its fuses.
void DecodeFuses(FuseGroup group, std::uint8_t byte, OptionChoice& options);
/// Selects the lock list from the byte that 'F' gave; a combination that no entry stands for leaves
/// the list alone.
void DecodeLock(FuseGroup group, std::uint8_t byte, OptionChoice& options);

}  // namespace tolvex
