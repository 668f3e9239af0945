// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QList>
#include <optional>

namespace tolvex {

/// Bytes that lie together in a memory.
struct MemoryPart {
    int address;  ///< of the first byte, in its memory
    QByteArray bytes;
};

/// What a linked program for an AVR puts into the chip's memories: the bytes of each section at its
/// load address, as avr-objcopy would write them.
struct ElfFile {
    QList<MemoryPart> flash;   ///< .text, .data and whatever else is linked below 0x800000
    QList<MemoryPart> eeprom;  ///< .eeprom, linked at 0x810000
    bool hasOther = false;     ///< fuses, lock bits or a signature, which are no memory
};

enum class ElfFault {
    Broken,    ///< cut off, or with numbers that point out of the file
    NotAvr,    ///< for another machine
    NotLinked  ///< an object file or a library: nothing has its address yet
};

bool IsElf(const QByteArray& content);
/// What keeps the file from being read goes to `fault`.
std::optional<ElfFile> ReadElf(const QByteArray& content, ElfFault& fault);

}  // namespace tolvex
