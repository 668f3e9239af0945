// SPDX-License-Identifier: MIT
#pragma once

#include <optional>

#include "device/device.h"
#include "image/image.h"

namespace tolvex {

/// Reads and changes single cells of the images by hand: a Flash word or an EEPROM byte, address
/// and value as the person typed them (hexadecimal, either case, the first four characters count).
/// The chip is not touched. What is wrong with an input is said in the message dialog, and nothing
/// changes.
class BufferPatch {
  public:
    /// Everything handed in is used, not owned.
    BufferPatch(MemoryImages& images, const CurrentDevice& device, Listings& listings,
                MessageDialog& messages, ErrorFlag& flag);

    /// Checks the address; an empty one passes silently. With `show`, the value at a valid address:
    /// four digits of a Flash word or two of an EEPROM byte. Nothing = leave the value box alone.
    std::optional<QString> ReadBufferCell(const QString& address, bool programSelected, bool show);

    /// Stores the value and regenerates the image's listing. Of an EEPROM value only the low byte
    /// counts.
    void WriteBufferCell(const QString& address, const QString& data, bool programSelected);

  private:
    /// The number, or nothing after a message.
    std::optional<int> Parse(const QString& text);
    /// The addressed cell, a Flash word's high byte; nothing after a message.
    std::optional<std::size_t> Cell(int address, bool programSelected);

    MemoryImages& images_;
    const CurrentDevice& device_;
    Listings& listings_;
    MessageDialog& messages_;
    ErrorFlag& flag_;
};

}  // namespace tolvex
