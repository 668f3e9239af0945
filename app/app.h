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

/// The per-user settings: texts under a key. A missing key reads as the default; nothing is ever
/// deleted.
class Settings {
  public:
    virtual ~Settings() = default;
    virtual QString GetSetting(const QString& key, const QString& standard) const = 0;
    virtual void SaveSetting(const QString& key, const QString& text) = 0;
};

/// Where the program finds and leaves files. Both end in a separator.
struct AppDir {
    QString program;   ///< the program's own folder: the help file
    QString listings;  ///< listings and verify report: the same folder, or a per-user one where
                       ///< the program's folder can't be written
};

}  // namespace tolvex
