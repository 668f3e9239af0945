// SPDX-License-Identifier: MIT
#pragma once

#include <QSettings>

#include "base/settings.h"

namespace tolvex {

/// `Tolvex` in the user's configuration folder (XDG_CONFIG_HOME is honoured), without a trailing
/// separator. It may not exist yet.
QString ConfigFolder();

/// The settings as an INI file, group `Settings`. What a step of the program saves goes to the disk
/// in one write, as soon as the event loop is back in hand or the program ends: so a killed program
/// loses nothing of a step that it finished. What can't be read counts as missing; what can't be
/// written (a forbidden folder) is kept until the program ends.
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
