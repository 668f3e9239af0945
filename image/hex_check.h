// SPDX-License-Identifier: MIT
#pragma once

#include <QIODevice>
#include <QList>
#include <QString>

namespace tolvex {

/// What can be wrong with an Intel HEX file. The reader takes all of these without a word.
enum class HexFault {
    NoColon,        ///< a line that begins with no colon, a blank one too: the reader stops there
    LowerCase,      ///< lower-case hexadecimal digits: the reader takes them for 0
    Digit,          ///< no hexadecimal digit: the reader takes it for 0
    Length,         ///< more or fewer digits than the count announces
    Checksum,       ///< the sum of the record is not 0
    UnknownType,    ///< a type other than 0 to 5
    BaseAddress,    ///< a base address other than 0, which the reader ignores
    Overlap,        ///< bytes for addresses that an earlier record has filled
    OutsideMemory,  ///< bytes beyond the memory
    EarlyEnd,       ///< an end record with lines behind it
    MissingEnd      ///< no end record
};

/// "noColon", for a machine.
QStringView HexFaultName(HexFault fault);

struct HexFinding {
    HexFault fault;
    int line;  ///< counted from 1; the last one for a missing end record; 0 = a file without lines
    int address = -1;  ///< the first byte concerned, base included; -1 = none
    int more{};        ///< further lines with the same fault, which are not listed
};

/// "12 行目: チェックサムが違います。"
QString HexFindingText(const HexFinding& finding);

/// Of each fault so many are listed, so that the report of any file stays short.
inline constexpr int kListedOfAFault = 10;

struct HexReport {
    bool readable = false;  ///< the file could be read to its end
    QList<HexFinding> findings = {};
    int records{};      ///< data records
    int goodRecords{};  ///< those of them without a fault
    int bytes{};        ///< different addresses of the memory filled
    /// The reader takes every data byte of the file, as it stands there, to its place.
    bool lossless = true;

    bool Clean() const { return readable && findings.isEmpty(); }
};

/// Goes through the file as strictly as the format allows. `memoryBytes`: size of the memory that
/// the file is meant for. Of a line's faults the first is told that makes the rest unreadable
/// (colon, digits, length), else all. The memory that this takes does not grow with the file.
HexReport CheckHex(const QString& path, int memoryBytes);
/// The same from an open device, to its end.
HexReport CheckHex(QIODevice& device, int memoryBytes);

}  // namespace tolvex
