// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace tolvex {

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
