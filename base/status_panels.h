// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace tolvex {

/// Panels of the status bar, counted from 1. Panel 4 shows the date and is never written.
enum StatusPanel { kMessagePanel = 1, kWriterPanel = 2, kSignaturePanel = 3, kPortPanel = 5 };

class StatusPanels {
  public:
    virtual ~StatusPanels() = default;
    /// Replaces the text of `panel` (1 to 5); an empty text clears it.
    virtual void SetStatusText(int panel, const QString& text) = 0;
};

}  // namespace tolvex
