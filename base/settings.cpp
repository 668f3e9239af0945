// SPDX-License-Identifier: MIT
#include "base/settings.h"

namespace tolvex {

namespace {

/// Stored numbers are single precision: at most seven significant digits.
QString NumberText(double value) {
    return QString::number(value, 'g', 7);
}

}  // namespace

double GetNumber(const Settings& settings, const NumberKey& key) {
    const QString name = QString::fromLatin1(key.name);
    bool valid = false;
    const double value =
        settings.GetSetting(name, NumberText(key.defaultValue)).trimmed().toDouble(&valid);
    const bool inRange = valid && value >= key.minimum && value <= key.maximum;
    return inRange ? value : key.defaultValue;
}

void SaveNumber(Settings& settings, const NumberKey& key, double value) {
    settings.SaveSetting(QString::fromLatin1(key.name), NumberText(value));
}

}  // namespace tolvex
