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

QRect GetPlace(const Settings& settings, const PlaceKeys& of) {
    const auto pixels = [&](std::size_t key) {
        return PixelsFromTwips(GetNumber(settings, of.at(key)));
    };
    return {pixels(0), pixels(1), pixels(2), pixels(3)};
}

QRect DefaultPlace(const PlaceKeys& of) {
    const auto pixels = [&](std::size_t key) { return PixelsFromTwips(of.at(key).defaultValue); };
    return {pixels(0), pixels(1), pixels(2), pixels(3)};
}

void SavePlace(Settings& settings, const PlaceKeys& of, const QRect& place) {
    SaveNumber(settings, of[0], TwipsFromPixels(place.x()));
    SaveNumber(settings, of[1], TwipsFromPixels(place.y()));
    SaveNumber(settings, of[2], TwipsFromPixels(place.width()));
    SaveNumber(settings, of[3], TwipsFromPixels(place.height()));
}

}  // namespace tolvex
