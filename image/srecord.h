// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

namespace tolvex {

/// Motorola S-records with upper-case digits: a header, data records of 16 bytes with 16-bit
/// addresses from 0 on, their count and an end record. At most 64 KiB.
QByteArray SRecordText(const QByteArray& bytes);

/// The same records as Intel HEX, each in the line in which it stands, with its faults: what proves
/// and reads HEX files then serves these too, and names the lines of the file. Digits may be lower
/// case. Headers and counts become records without meaning, a wrong count a wrong checksum; a right
/// one may stand in for the end record. Data above 64 KiB becomes a base address, and a line that
/// is no S-record a record of an unknown type, both of which the check refuses.
QByteArray HexOfSRecords(const QByteArray& text);

}  // namespace tolvex
