// SPDX-License-Identifier: MIT
#pragma once

#include "device/device.h"
#include "image/image.h"

namespace tolvex {

/// The listings as files: `avrhex.txt`, `avreep.txt` and the verify report `avrvfy.txt`, all in one
/// folder. A listing has a line per 16 bytes of the device's memory: address (in words or bytes),
/// hexadecimal values, and the same bytes as characters. Written lines end with CRLF; the text that
/// goes to a window has plain newlines.
class ListingFiles : public Listings {
  public:
    /// `folder` ends in a separator. Everything handed in is used, not owned.
    ListingFiles(const MemoryImages& images, const CurrentDevice& device, const QString& folder,
                 ListingWindows& windows);

    bool WriteFlashListing() override;
    bool ShowFlashListing() override;
    bool WriteEepromListing() override;
    bool ShowEepromListing() override;
    QString ReportPath() const override;
    bool ShowVerifyReport() override;
    void Retire() override;

  private:
    using ShowText = void (ListingWindows::*)(const QString&);

    /// Empty once retired.
    QString Path(const char* name) const;
    bool Show(const char* name, ShowText show);

    const MemoryImages& images_;
    const CurrentDevice& device_;
    const QString folder_;
    ListingWindows& windows_;
    bool retired_ = false;
};

}  // namespace tolvex
