// SPDX-License-Identifier: MIT
#pragma once

#include <QList>
#include <QString>

namespace tolvex {

/// What can be wrong with an Intel HEX file. The reader takes all of these without a word.
enum class HexFault {
    NoColon,        ///< a line that begins with no colon, a blank one too: the reader stops there
    Digit,          ///< no hexadecimal digit, or a lower-case one: the reader takes it for 0
    Length,         ///< more or fewer digits than the count announces
    Checksum,       ///< the sum of the record is not 0
    UnknownType,    ///< a type other than 0 to 5
    BaseAddress,    ///< a base address other than 0, which the reader ignores
    Overlap,        ///< bytes for addresses that an earlier record has filled
    OutsideMemory,  ///< bytes beyond the memory
    EarlyEnd,       ///< an end record with lines behind it
    MissingEnd      ///< no end record
};

struct HexFinding {
    HexFault fault;
    int line;          ///< counted from 1; the last one for a missing end record
    int address = -1;  ///< the first byte concerned, base included; -1 = none
};

struct HexReport {
    bool readable = false;  ///< the file could be read to its end
    QList<HexFinding> findings;
    int records = 0;  ///< data records
    int bytes = 0;    ///< different addresses filled

    bool Clean() const { return readable && findings.isEmpty(); }
};

/// Goes through the file as strictly as the format allows. `memoryBytes`: size of the memory that
/// the file is meant for. Of a line's faults the first is told that makes the rest unreadable
/// (colon, digits, length), else all.
HexReport CheckHex(const QString& path, int memoryBytes);

}  // namespace tolvex
