// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <span>

#include "base/device_record.h"

namespace tolvex {

/// Every chip that can be selected, in the order of the device list.
std::span<const DeviceRecord> Catalogue();
/// The size of a chip's program memory in words that stands behind the middle byte of its
/// signature; 0 for a byte that stands for none.
int FlashWordsOfSizeCode(std::uint8_t sizeCode);
/// "AT90S1200A" out of a catalogue name: what can be typed on any keyboard.
QString PartNumber(const QString& catalogueName);
/// The part whose signature this is, in the writer's order; empty for none of the catalogue's.
QString PartOf(const std::array<std::uint8_t, 3>& signature);
/// The entry of the device list that `text` names, whole or by its part number, in either case.
std::optional<int> FindDevice(const QString& text);

}  // namespace tolvex
