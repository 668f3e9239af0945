// SPDX-License-Identifier: MIT
#pragma once

#include <optional>

#include "base/person.h"
#include "image/image.h"

namespace tolvex {

/// Reads and changes single cells of the images by hand: a Flash word or an EEPROM byte, address
/// and value as the person typed them (hexadecimal, either case, the first four characters count).
/// The chip is not touched. What is wrong with an input is said in the message dialog, and nothing
/// changes.
class BufferPatch {
  public:
    /// Borrowed.
    struct Parts {
        Listings& listings;
        const Person& person;
        ProgramState& state;
    };

    explicit BufferPatch(const Parts& parts)
        : listings_(parts.listings),
          dialog_(parts.person.dialog),
          images_(parts.state.images),
          device_(parts.state.device),
          flag_(parts.state.errorFlag) {}

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

    Listings& listings_;
    MessageDialog& dialog_;
    MemoryImages& images_;
    const CurrentDevice& device_;
    ErrorFlag& flag_;
};

}  // namespace tolvex
