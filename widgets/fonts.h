// SPDX-License-Identifier: MIT
#pragma once

#include <QFont>
#include <QFontDatabase>

namespace tolvex {

/// For the listings: fixed pitch, half-width katakana as wide as a Latin letter, kanji twice as
/// wide. Falls back to the system's fixed-pitch font. `points` is 1/72 inch. All of these need a
/// QGuiApplication.
QFont ListingFont(int points);

/// The system's font for windows, with Japanese ones to fall back on before any Chinese font gets
/// its chance to draw the kanji in its own shapes. Never larger than the child windows were
/// designed with: their places are fixed, and larger bars would push them out of sight. All
/// windows have it, so that none is out of proportion.
QFont WindowFont(QFont desktop = QFontDatabase::systemFont(QFontDatabase::GeneralFont));

/// False: Japanese texts will show as boxes.
bool JapaneseFontFound();

}  // namespace tolvex
