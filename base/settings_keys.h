// SPDX-License-Identifier: MIT
#pragma once

#include "base/settings.h"

namespace tolvex {

/// A numeric setting: its name, its value when missing, and the range outside which a stored value
/// counts as damaged and reads as the default.
struct NumberKey {
    const char* name;
    double standard;
    double least;
    double most;
};

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
inline constexpr NumberKey SetLeft{"SetLeft", 7000, -kFarthestTwip, kFarthestTwip};
inline constexpr NumberKey SetTop{"SetTop", 50, -kFarthestTwip, kFarthestTwip};
/// Any number but 0 means that the first-start dialog has been shown.
inline constexpr NumberKey IndexFirstFlag{"Index_First_Flag", 0, -1e300, 1e300};
inline constexpr NumberKey IndexComFlag{"Index_Com_Flag", 0, -1e300, 1e300};
/// The chosen port. Detection takes COM1 when none is stored, but asks apart whether one ever was.
inline constexpr NumberKey ComNox{"ComNox", 1, 0, 20};
inline constexpr NumberKey ComNoxChosen{"ComNox", 0, 0, 20};
/// The entry of the device list; how many there are is the catalogue's knowledge.
inline constexpr NumberKey Device{"device", 0, 0, 255};
inline constexpr char OpenDir[] = "OPEN_DIR";
inline constexpr char SaveDir[] = "SAVE_DIR";
}  // namespace keys

/// The stored number, or the key's default when it is missing, no number, or out of range.
double GetNumber(const Settings& settings, const NumberKey& key);
/// Writes the shortest decimal text, "6900" for a whole number.
void SaveNumber(Settings& settings, const NumberKey& key, double value);

}  // namespace tolvex
