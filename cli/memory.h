// SPDX-License-Identifier: MIT
#pragma once

#include "cli/session.h"

namespace tolvex {

enum class Memory { Flash, Eeprom };

/// What a command works on: with --only one of them.
struct Memories {
    bool flash = true;
    bool eeprom = true;

    /// Nothing for a word that names none. An empty word names both.
    static std::optional<Memories> Named(const QString& word);
    bool Both() const { return flash && eeprom; }
};

/// Reads one memory of a chip that has been found into its image, or stops at the first command
/// that fails. Gives a status.
int ReadMemory(Session& session, Memory memory, MemoryImages& images);
/// Copies one memory's image.
void CopyMemory(Memory memory, const MemoryImages& from, MemoryImages& to);
/// Where the chip's content is another one, over the whole device.
QList<VerifyResult::Difference> Compare(const CurrentDevice& device, Memories memories,
                                        const MemoryImages& expected, const MemoryImages& chip);
/// Prints the differences and puts them into the report; with any it is a failure.
int TellDifferences(Session& session, const QList<VerifyResult::Difference>& differences);

}  // namespace tolvex
