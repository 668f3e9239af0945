// SPDX-License-Identifier: MIT
#pragma once

#include <QStringList>

#include "image/image.h"

namespace tolvex {

/// The listings as files: `avrhex.txt`, `avreep.txt` and the verify report `avrvfy.txt`. A listing
/// has a line per 16 bytes of the device's memory: address (in words or bytes), hexadecimal values,
/// and the same bytes as characters. Written lines end with CRLF; the text that goes to a window
/// has plain newlines.
class ListingFiles : public Listings {
  public:
    /// Borrowed. Of `folders`, which end in a separator, the first is used that takes a file;
    /// without any folder nothing is kept and every call succeeds.
    struct Parts {
        const QStringList& folders;
        ListingWindows& windows;
        const ProgramState& state;
    };

    explicit ListingFiles(const Parts& parts)
        : folders_(parts.folders),
          windows_(parts.windows),
          images_(parts.state.images),
          device_(parts.state.device) {}

    bool WriteFlashListing() override;
    bool ShowFlashListing() override;
    bool WriteEepromListing() override;
    bool ShowEepromListing() override;
    bool WriteVerifyReport(const QByteArray& text) override;
    bool ShowVerifyReport() override;
    void Retire() override;

  private:
    using ShowText = void (ListingWindows::*)(const QString&);

    bool KeepsNothing() const { return folders_.isEmpty(); }
    bool Write(const char* name, const QByteArray& text);
    bool Show(const char* name, ShowText show);
    QString Path(const char* name) const { return folders_.first() + QString::fromLatin1(name); }

    const QStringList folders_;
    ListingWindows& windows_;
    const MemoryImages& images_;
    const CurrentDevice& device_;
    bool retired_ = false;
};

}  // namespace tolvex
