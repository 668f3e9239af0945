// SPDX-License-Identifier: MIT
#pragma once

#include <QRect>
#include <QString>
#include <QStringList>
#include <array>

namespace tolvex {

/// Where the program finds and leaves files. Every folder ends in a separator.
struct AppDir {
    QString program;  ///< the program's own folder: the help file
    /// Listings and verify report: the first of these folders that can be written. None: a program
    /// without windows keeps no listings.
    QStringList listings;
};

/// The per-user settings: texts under a key. A missing key reads as the default; nothing is ever
/// deleted.
class Settings {
  public:
    virtual ~Settings() = default;
    virtual QString GetSetting(const QString& key, const QString& defaultText) const = 0;
    virtual void SaveSetting(const QString& key, const QString& text) = 0;
};

/// A numeric setting: its name, its value when missing, and the range outside which a stored value
/// counts as damaged and reads as the default.
struct NumberKey {
    const char* name;
    double defaultValue;
    double minimum;
    double maximum;
};

/// Where a window stands: left, top, width, height.
using PlaceKeys = std::array<NumberKey, 4>;

/// Window geometry is stored in twips, 1/1440 inch. Qt's pixels are device-independent: 96 an inch
/// at any scale factor.
inline constexpr double kTwipsPerPixel = 15;

inline int PixelsFromTwips(double twips) {
    return qRound(twips / kTwipsPerPixel);
}

inline double TwipsFromPixels(int pixels) {
    return pixels * kTwipsPerPixel;
}

/// Twips; wide enough for any arrangement of screens, narrow enough for Qt's pixel range.
inline constexpr double kFarthestTwip = 400000;

namespace keys {
inline constexpr NumberKey MainLeft{"MainLeft", 100, -kFarthestTwip, kFarthestTwip};
inline constexpr NumberKey MainTop{"MainTop", 100, -kFarthestTwip, kFarthestTwip};
inline constexpr NumberKey MainWidth{"MainWidth", 11300, 0, kFarthestTwip};
inline constexpr NumberKey MainHeight{"MainHeight", 7900, 0, kFarthestTwip};
inline constexpr NumberKey PgmLeft{"PgmLeft", 50, -kFarthestTwip, kFarthestTwip};
inline constexpr NumberKey PgmTop{"PgmTop", 50, -kFarthestTwip, kFarthestTwip};
inline constexpr NumberKey PgmWidth{"PgmWidth", 6900, 0, kFarthestTwip};
inline constexpr NumberKey PgmHeight{"PgmHeight", 4000, 0, kFarthestTwip};
inline constexpr NumberKey EEpLeft{"EEpLeft", 50, -kFarthestTwip, kFarthestTwip};
inline constexpr NumberKey EEpTop{"EEpTop", 4100, -kFarthestTwip, kFarthestTwip};
inline constexpr NumberKey EEpWidth{"EEpWidth", 6900, 0, kFarthestTwip};
inline constexpr NumberKey EEpHeight{"EEpHeight", 2000, 0, kFarthestTwip};
inline constexpr PlaceKeys MainPlace{MainLeft, MainTop, MainWidth, MainHeight};
inline constexpr PlaceKeys PgmPlace{PgmLeft, PgmTop, PgmWidth, PgmHeight};
inline constexpr PlaceKeys EEpPlace{EEpLeft, EEpTop, EEpWidth, EEpHeight};
inline constexpr NumberKey SetLeft{"SetLeft", 7000, -kFarthestTwip, kFarthestTwip};
inline constexpr NumberKey SetTop{"SetTop", 50, -kFarthestTwip, kFarthestTwip};
/// Any number but 0 means that the first-start dialog has been shown.
inline constexpr NumberKey IndexFirstFlag{"Index_First_Flag", 0, -1e300, 1e300};
inline constexpr NumberKey IndexComFlag{"Index_Com_Flag", 0, -1e300, 1e300};
/// The chosen port. Detection configures COM1 when none is stored.
inline constexpr NumberKey ComNox{"ComNox", 1, 0, 20};
/// The same; 0 = never chosen.
inline constexpr NumberKey ComNoxChosen{"ComNox", 0, 0, 20};
/// The entry of the device list; how many there are is the catalogue's knowledge.
inline constexpr NumberKey Device{"device", 0, 0, 255};
inline constexpr char OpenDir[] = "OPEN_DIR";
inline constexpr char SaveDir[] = "SAVE_DIR";
/// Of the window: "en" or "ja".
inline constexpr char Language[] = "Language";
}  // namespace keys

/// The stored number, or the key's default when it is missing, no number, or out of range.
double GetNumber(const Settings& settings, const NumberKey& key);
/// Writes the shortest decimal text, "6900" for a whole number.
void SaveNumber(Settings& settings, const NumberKey& key, double value);

// Places in pixels, stored in twips.
QRect GetPlace(const Settings& settings, const PlaceKeys& of);
QRect DefaultPlace(const PlaceKeys& of);
void SavePlace(Settings& settings, const PlaceKeys& of, const QRect& place);

}  // namespace tolvex
