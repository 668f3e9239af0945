// SPDX-License-Identifier: MIT
#pragma once

#include <QSettings>

#include "base/settings.h"

namespace tolvex {

/// `Tolvex` in the user's configuration folder (XDG_CONFIG_HOME is honoured), without a trailing
/// separator. It may not exist yet.
QString ConfigFolder();

/// The settings as an INI file, group `Settings`. Every save goes to the disk at once, so a killed
/// program loses nothing. What can't be read counts as missing; what can't be written (a forbidden
/// folder) is kept until the program ends.
class SettingsFile : public Settings {
  public:
    /// Neither the file nor its folder need exist.
    explicit SettingsFile(const QString& path);

    /// Any text comes back exactly as it was saved.
    QString GetSetting(const QString& key, const QString& standard) const override;
    /// Leaves the other keys as they are; lines that are no key are dropped.
    void SaveSetting(const QString& key, const QString& text) override;

  private:
    QSettings file_;
};

/// The file that the program uses.
QString SettingsPath();

}  // namespace tolvex
