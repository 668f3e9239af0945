// SPDX-License-Identifier: MIT
#pragma once

#include <QFont>

namespace tolvex {

/// For the listings: fixed pitch, half-width katakana as wide as a Latin letter, kanji twice as
/// wide. Falls back to the system's fixed-pitch font. `points` is 1/72 inch. All of these need a
/// QGuiApplication.
QFont ListingFont(int points);

/// The system's font for windows, with Japanese ones to fall back on before any Chinese font gets
/// its chance to draw the kanji in its own shapes.
QFont WindowFont();

/// The same for the bars of the main window, never larger than the layout of its child windows was
/// designed with: their places are fixed, and larger bars would push them out of sight.
QFont BarFont();

/// False: Japanese texts will show as boxes.
bool JapaneseFontFound();

}  // namespace tolvex
