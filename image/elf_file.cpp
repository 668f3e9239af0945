// SPDX-License-Identifier: MIT
// The layout is that of the System V ABI, "Executable and Linking Format", for 32 bits and little
// endian, which is what AVRs have.
#include "image/elf_file.h"

#include <QtEndian>

namespace tolvex {

namespace {

constexpr qsizetype kHeaderBytes = 52;
constexpr quint8 k32Bits = 1, kLittleEndian = 1;
constexpr quint16 kExecutable = 2;
constexpr quint16 kAvr = 83;
constexpr quint32 kLoaded = 1;        ///< a segment's type
constexpr quint32 kNoBits = 8;        ///< a section's type: it takes room in the RAM alone
constexpr quint32 kAllocated = 0x2;   ///< a section's flag
constexpr qint64 kData = 0x800000;    ///< from here on: no Flash
constexpr qint64 kEeprom = 0x810000;  ///< where avr-gcc's linker scripts put it
constexpr qint64 kEepromEnd = 0x820000;

/// Rows of a table in the file.
struct Table {
    qint64 start;
    int rowBytes, rows;
};

bool Holds(const QByteArray& content, qint64 start, qint64 bytes) {
    return start >= 0 && bytes >= 0 && start + bytes <= content.size();
}

bool Holds(const QByteArray& content, const Table& table) {
    return Holds(content, table.start, static_cast<qint64>(table.rowBytes) * table.rows);
}

quint16 Half(const QByteArray& content, qint64 at) {
    return qFromLittleEndian<quint16>(content.data() + at);
}

quint32 Word(const QByteArray& content, qint64 at) {
    return qFromLittleEndian<quint32>(content.data() + at);
}

/// Where bytes at `offset` of the file are loaded to: by the segment that they lie in.
std::optional<qint64> LoadAddress(const QByteArray& content, const Table& segments, qint64 offset,
                                  qint64 bytes) {
    for (int i = 0; i < segments.rows; ++i) {
        const qint64 row = segments.start + i * segments.rowBytes;
        const qint64 start = Word(content, row + 4);
        if (Word(content, row) == kLoaded && offset >= start &&
            offset + bytes <= start + Word(content, row + 16)) {
            return Word(content, row + 12) + (offset - start);
        }
    }
    return std::nullopt;
}

void Add(ElfFile& file, qint64 address, const QByteArray& bytes) {
    if (address < kData) {
        file.flash << MemoryPart{static_cast<int>(address), bytes};
    } else if (address >= kEeprom && address < kEepromEnd) {
        file.eeprom << MemoryPart{static_cast<int>(address - kEeprom), bytes};
    } else {
        file.hasOther = true;
    }
}

}  // namespace

bool IsElf(const QByteArray& content) {
    return content.startsWith(
        "\x7F"
        "ELF");
}

std::optional<ElfFile> ReadElf(const QByteArray& content, ElfFault& fault) {
    fault = ElfFault::Broken;
    if (!IsElf(content) || !Holds(content, 0, kHeaderBytes)) {
        return std::nullopt;
    }
    if (content[4] != k32Bits || content[5] != kLittleEndian || Half(content, 18) != kAvr) {
        fault = ElfFault::NotAvr;
        return std::nullopt;
    }
    if (Half(content, 16) != kExecutable) {
        fault = ElfFault::NotLinked;
        return std::nullopt;
    }
    const Table segments{Word(content, 28), Half(content, 42), Half(content, 44)};
    const Table sections{Word(content, 32), Half(content, 46), Half(content, 48)};
    if (segments.rowBytes < 32 || sections.rowBytes < 40 || sections.rows == 0 ||
        !Holds(content, segments) || !Holds(content, sections)) {
        return std::nullopt;
    }
    ElfFile file;
    for (int i = 0; i < sections.rows; ++i) {
        const qint64 row = sections.start + i * sections.rowBytes;
        const qint64 offset = Word(content, row + 16), bytes = Word(content, row + 20);
        if ((Word(content, row + 8) & kAllocated) == 0 || Word(content, row + 4) == kNoBits ||
            bytes == 0) {
            continue;
        }
        const auto address = LoadAddress(content, segments, offset, bytes);
        if (!Holds(content, offset, bytes) || !address) {
            return std::nullopt;
        }
        Add(file, *address, content.mid(offset, bytes));
    }
    return file;
}

}  // namespace tolvex
