// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringView>
#include <optional>

#include "base/program_state.h"
#include "base/settings.h"
#include "base/user_interface.h"
#include "image/listing_files.h"

namespace tolvex {

/// "0" to "9" and "A" to "F" exactly; anything else is 0 and sets the flag.
int HexDigitValue(QStringView digit, ErrorFlag& flag);
/// Four one-character texts, most significant first: 0 to 65535.
int HexValue4(QStringView d1, QStringView d2, QStringView d3, QStringView d4, ErrorFlag& flag);
/// What a user typed, either case: the first four digits count, a shorter text is padded on the
/// left. An empty text sets the flag.
int ParseHex4(const QString& text, ErrorFlag& flag);
/// Two upper-case digits.
QString HexByte(int value);
/// Four upper-case digits.
QString HexWord4(int value);

/// True if the path is a regular file, or leads to one, and can be opened for reading. Nothing else
/// is ever opened: a FIFO would hold the program up until somebody writes into it.
bool FileExists(const QString& path);
/// True where a regular file stands or nothing yet; a FIFO would wait for its reader.
bool IsWritableTarget(const QString& path);

/// Ends in ".eep", in either case.
bool IsDataFileName(const QString& path);
/// The data file that goes with a chosen file, in the same folder: the last three characters give
/// way to "eep", "blink.hex" becomes "blink.eep". A data file's own name stays.
QString DataFileNameFor(const QString& chosen);
/// The same to be opened: where there is no such file, the one whose name differs from it in case
/// alone, "BLINK.EEP" beside "BLINK.HEX" as DOS disks have them.
QString FindDataFile(const QString& chosen);

/// What the commands on the images work with; borrowed.
struct ImageContext {
    ListingFiles& listings;
    Settings& settings;
    UserInterface& ui;
    ProgramState& state;
};

// The patch panel reads and changes single cells of the images: a Flash word (`isFlash`) or an
// EEPROM byte, address and value as the user typed them (hexadecimal, either case, the first four
// characters count). The chip is not touched. What is wrong with an input is said in the message
// dialog, and nothing changes.

/// Checks the address; an empty one passes silently. With `show`, the value at a valid address:
/// four digits of a Flash word or two of an EEPROM byte. Nothing = leave the value box alone.
std::optional<QString> ReadBufferCell(const ImageContext& context, const QString& address,
                                      bool isFlash, bool show);
/// Stores the value and regenerates the image's listing. Of an EEPROM value only the low byte
/// counts.
void WriteBufferCell(const ImageContext& context, const QString& address, const QString& data,
                     bool isFlash);

}  // namespace tolvex
