// SPDX-License-Identifier: MIT
#pragma once

#include "base/device_record.h"
#include "base/memory_images.h"
#include "base/message_dialog.h"
#include "device/chip_results.h"

namespace tolvex {

/// Both memories of the chip, or one of them.
struct Memories {
    bool flash = true;
    bool eeprom = true;

    bool Both() const { return flash && eeprom; }
};

/// Reads whole memories of a chip that has been found into their images, without check, listings
/// and message, up to the first command that fails. False after such a one; programming mode is
/// then not left.
bool ReadMemories(WriterCommands& writer, MessageDialog& dialog, const CurrentDevice& device,
                  Memories memories, MemoryImages& images);
/// Where the chip's content is not the image's, over the whole device.
QList<VerifyResult::Difference> Compare(const CurrentDevice& device, Memories memories,
                                        const MemoryImages& expected, const MemoryImages& chip);

}  // namespace tolvex
