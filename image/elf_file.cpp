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

/// The content, of which only what is there can be read.
class ElfReader {
  public:
    explicit ElfReader(const QByteArray& content) : content_(content) {}

    bool Holds(qint64 start, qint64 bytes) const {
        return start >= 0 && bytes >= 0 && start + bytes <= content_.size();
    }
    bool Holds(const Table& table) const {
        return Holds(table.start, static_cast<qint64>(table.rowBytes) * table.rows);
    }
    quint16 Half(qint64 at) const { return qFromLittleEndian<quint16>(content_.data() + at); }
    quint32 Word(qint64 at) const { return qFromLittleEndian<quint32>(content_.data() + at); }

    /// Where bytes at `offset` of the file are loaded to: by the segment that they lie in.
    std::optional<qint64> LoadAddress(const Table& segments, qint64 offset, qint64 bytes) const {
        for (int i = 0; i < segments.rows; ++i) {
            const qint64 row = segments.start + i * segments.rowBytes;
            const qint64 start = Word(row + 4);
            if (Word(row) == kLoaded && offset >= start &&
                offset + bytes <= start + Word(row + 16)) {
                return Word(row + 12) + (offset - start);
            }
        }
        return std::nullopt;
    }

  private:
    const QByteArray& content_;
};

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
    const ElfReader elf(content);
    fault = ElfFault::Broken;
    if (!IsElf(content) || !elf.Holds(0, kHeaderBytes)) {
        return std::nullopt;
    }
    if (content[4] != k32Bits || content[5] != kLittleEndian || elf.Half(18) != kAvr) {
        fault = ElfFault::NotAvr;
        return std::nullopt;
    }
    if (elf.Half(16) != kExecutable) {
        fault = ElfFault::NotLinked;
        return std::nullopt;
    }
    const Table segments{elf.Word(28), elf.Half(42), elf.Half(44)};
    const Table sections{elf.Word(32), elf.Half(46), elf.Half(48)};
    if (segments.rowBytes < 32 || sections.rowBytes < 40 || sections.rows == 0 ||
        !elf.Holds(segments) || !elf.Holds(sections)) {
        return std::nullopt;
    }
    ElfFile file;
    for (int i = 0; i < sections.rows; ++i) {
        const qint64 row = sections.start + i * sections.rowBytes;
        const qint64 offset = elf.Word(row + 16), bytes = elf.Word(row + 20);
        if ((elf.Word(row + 8) & kAllocated) == 0 || elf.Word(row + 4) == kNoBits || bytes == 0) {
            continue;
        }
        const auto address = elf.LoadAddress(segments, offset, bytes);
        if (!elf.Holds(offset, bytes) || !address) {
            return std::nullopt;
        }
        Add(file, *address, content.mid(offset, bytes));
    }
    return file;
}

}  // namespace tolvex
