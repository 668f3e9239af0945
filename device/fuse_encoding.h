// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>

#include "base/device_record.h"
#include "base/setting_panel.h"

namespace tolvex {

/// Between the entries of the lock and fuse lists and the bytes that the writer takes and gives.

/// Entry 0 to 2 of the lock list as 'l' takes it.
std::uint8_t EncodeLock(int entry);
/// The fuse lists of `group` as 'f' takes them; empty for a group without fuses.
std::optional<std::uint8_t> EncodeFuses(FuseGroup group, const SettingPanel& lists);
/// Selects the fuse lists of `group` from the byte that carries its fuses.
void DecodeFuses(FuseGroup group, std::uint8_t byte, SettingPanel& lists);
/// Selects the lock list from the byte that 'F' gave; a combination that no entry stands for leaves
/// the list alone.
void DecodeLock(FuseGroup group, std::uint8_t byte, SettingPanel& lists);

}  // namespace tolvex
