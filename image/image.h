// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringView>

#include "base/error_flag.h"
#include "base/listing_windows.h"
#include "base/memory_images.h"
#include "base/program_state.h"

namespace tolvex {

/// "0" to "9" and "A" to "F" exactly; anything else is 0 and sets the flag.
int HexDigitValue(QStringView digit, ErrorFlag& flag);
/// Four one-character texts, most significant first: 0 to 65535.
int HexValue4(QStringView d1, QStringView d2, QStringView d3, QStringView d4, ErrorFlag& flag);
/// What a person typed, either case: the first four digits count, a shorter text is padded on the
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
bool TakesFile(const QString& path);

/// The listings: written to a file in the listings folder, then loaded from it into their window.
/// Each call is false when its file can't be written or loaded.
class Listings {
  public:
    virtual ~Listings() = default;
    virtual bool WriteFlashListing() = 0;
    virtual bool ShowFlashListing() = 0;
    virtual bool WriteEepromListing() = 0;
    virtual bool ShowEepromListing() = 0;
    /// Replaces the verify report by `text`, whose lines end with CRLF.
    virtual bool WriteVerifyReport(const QByteArray& text) = 0;
    /// Loads the report into the verify window and shows that.
    virtual bool ShowVerifyReport() = 0;
    /// Deletes the three files. From then on nothing is written any more, so that a chain that the
    /// shutdown found half-way can't bring them back.
    virtual void Retire() = 0;

    bool RefreshFlashListing() { return WriteFlashListing() && ShowFlashListing(); }
    bool RefreshEepromListing() { return WriteEepromListing() && ShowEepromListing(); }
};

}  // namespace tolvex
