// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringView>
#include <array>
#include <cstdint>

#include "link/link.h"

namespace tolvex {

inline constexpr std::uint8_t kErased = 0xFF;

/// The chip's program memory. Word w lies in cells 2w (high byte) and 2w + 1 (low byte), the
/// reverse of the byte order in an Intel HEX file. Cell 65536 is never filled from a file.
using FlashImage = std::array<std::uint8_t, 65537>;
/// The chip's data memory: byte address a is cell a.
using EepromImage = std::array<std::uint8_t, 2049>;

/// The PC's copy of both memories. Their size never changes; how much of them is in use follows
/// the selected device.
struct MemoryImages {
    FlashImage flash;
    EepromImage eeprom;

    MemoryImages() {
        ClearFlashImage();
        ClearEepromImage();
    }
    void ClearFlashImage() { flash.fill(kErased); }
    void ClearEepromImage() { eeprom.fill(kErased); }
};

/// Which files the file commands work on; all empty at start-up.
struct FileNames {
    QString CodeFileName;  ///< last opened
    QString DataFileName;
    QString CodeSaveName;  ///< where the next write goes
    QString DataSaveName;
    bool ReloadFlag = false;  ///< open again what is named, without a dialog
};

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
/// True if the path can be opened for reading.
bool FileExists(const QString& path);

/// The listings: written to a file in the listings folder, then loaded from it into their window.
/// Each call is false when its file can't be written or loaded.
class Listings {
  public:
    virtual ~Listings() = default;
    virtual bool WriteFlashListing() = 0;
    virtual bool ShowFlashListing() = 0;
    virtual bool WriteEepromListing() = 0;
    virtual bool ShowEepromListing() = 0;
    /// The verify report's path; empty when nothing may be written any more.
    virtual QString ReportPath() const = 0;
    /// Loads the report into the verify window and shows that.
    virtual bool ShowVerifyReport() = 0;
    /// Deletes the three files. From then on nothing is written any more, so that a chain that the
    /// shutdown found half-way can't bring them back.
    virtual void Retire() = 0;
};

/// The three listing windows. `text` replaces the whole content.
class ListingWindows {
  public:
    virtual ~ListingWindows() = default;
    virtual void SetFlashListing(const QString& text) = 0;
    virtual void SetEepromListing(const QString& text) = 0;
    /// Also brings the window up, not modal.
    virtual void ShowVerifyReport(const QString& text) = 0;
    virtual void SetFlashCaption(const QString& caption) = 0;
    virtual void SetEepromCaption(const QString& caption) = 0;
};

}  // namespace tolvex
