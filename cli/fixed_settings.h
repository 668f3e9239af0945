// SPDX-License-Identifier: MIT
#pragma once

#include <QMap>

#include "base/settings.h"

namespace tolvex {

/// The stored settings with some of them replaced by the command line. Nothing is ever saved.
class FixedSettings : public Settings {
  public:
    /// `stored` is borrowed.
    explicit FixedSettings(const Settings& stored) : stored_(stored) {}

    void Fix(const char* key, const QString& text) { fixed_[QString::fromLatin1(key)] = text; }

    QString GetSetting(const QString& key, const QString& defaultText) const override {
        return fixed_.contains(key) ? fixed_[key] : stored_.GetSetting(key, defaultText);
    }
    void SaveSetting(const QString&, const QString&) override {}

  private:
    const Settings& stored_;
    QMap<QString, QString> fixed_;
};

}  // namespace tolvex
