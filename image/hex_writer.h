// SPDX-License-Identifier: MIT
#pragma once

#include "image/image.h"

namespace tolvex {

enum class HexWriteResult {
    Written,
    AccessRefused,  ///< the system forbids writing this path, as with a read-only file
    Failed          ///< anything else: no such folder, no regular file, a full disk
};

/// Writes the memory of the selected device, erased cells included, as an Intel HEX file of
/// 16-byte records and an end record. A file of that name is replaced in place; after a failure
/// the lines already written stay in it. Sizes are multiples of 16 bytes; 0 writes the end record
/// alone.
HexWriteResult WriteCodeHex(const QString& path, const FlashImage& image, std::int32_t flashWords);
HexWriteResult WriteDataHex(const QString& path, const EepromImage& image,
                            std::int32_t eepromBytes);

/// The memories as bytes in the order of the files: of a Flash word the low byte first.
QByteArray CodeBytes(const FlashImage& image, std::int32_t flashWords);
QByteArray DataBytes(const EepromImage& image, std::int32_t eepromBytes);
/// The same files as text, for whoever puts it elsewhere; `bytes` of at most 64 KiB.
QByteArray HexText(const QByteArray& bytes);

/// Appends the two checksum digits to a record that begins with ":" and lacks nothing else.
void AppendChecksum(QString& record);

}  // namespace tolvex
