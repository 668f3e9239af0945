// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace tolvex {

/// The per-user settings: texts under a key. A missing key reads as the default; nothing is ever
/// deleted.
class Settings {
  public:
    virtual ~Settings() = default;
    virtual QString GetSetting(const QString& key, const QString& standard) const = 0;
    virtual void SaveSetting(const QString& key, const QString& text) = 0;
};

}  // namespace tolvex
