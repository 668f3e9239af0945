// SPDX-License-Identifier: MIT
#pragma once

#include <QJsonArray>

#include "device/device.h"

namespace tolvex {

/// Reads whole memories of a chip that has been found into `images`, without check, listings and
/// message, up to the first command that fails. False after such a one; programming mode is then
/// not left.
bool ReadMemories(const ChipContext& chip, Memories memories, MemoryImages& images);
/// Where the chip's content is not the image's, over the whole device.
QList<Difference> Compare(const CurrentDevice& device, Memories memories,
                          const MemoryImages& expected, const MemoryImages& chip);
/// As --json gives them.
QJsonArray DifferencesJson(const QList<Difference>& differences);

}  // namespace tolvex
