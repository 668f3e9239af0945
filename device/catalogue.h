// SPDX-License-Identifier: MIT
#pragma once

#include <span>

#include "base/device_record.h"

namespace tolvex {

/// Every chip that can be selected, in the order of the device list.
std::span<const DeviceRecord> Catalogue();
/// The size of a chip's program memory in words that stands behind the middle byte of its
/// signature; 0 for a byte that stands for none.
int FlashWordsOfSizeCode(std::uint8_t sizeCode);

}  // namespace tolvex
