// SPDX-License-Identifier: MIT
#include "widgets/fonts.h"

#include <QFontInfo>
#include <QStringList>
#include <algorithm>

namespace tolvex {

using namespace Qt::StringLiterals;

namespace {

constexpr int kLargestPixels = 13;

QStringList FixedFamilies() {
    return {u"ＭＳ ゴシック"_s, u"MS Gothic"_s, u"IPAGothic"_s, u"Noto Sans Mono CJK JP"_s};
}

QStringList WindowFamilies() {
    return {u"Yu Gothic UI"_s, u"Meiryo UI"_s,   u"MS UI Gothic"_s, u"Noto Sans CJK JP"_s,
            u"IPAPGothic"_s,   u"IPAexGothic"_s, u"TakaoPGothic"_s, u"VL PGothic"_s};
}

/// The first by its own name; one has all letters. Asking for each family alone would follow the
/// system's aliases too, which takes longer than all else at the start of the program.
QStringList FirstInstalled(QStringList families) {
    const QStringList all = QFontDatabase::families();
    families.removeIf([&all](const QString& family) { return !all.contains(family); });
    return families.mid(0, 1);
}

/// Beside a single family Qt looks for others only when a letter is missing, beside two at once.
void SetFamilies(QFont& font, const QStringList& families) {
    if (!families.isEmpty()) {
        font.setFamilies(families);
    }
}

}  // namespace

QFont ListingFont(int points) {
    QFont font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    SetFamilies(font, FirstInstalled(FixedFamilies()));
    font.setStyleHint(QFont::Monospace);
    font.setFixedPitch(true);
    font.setPointSize(points);
    return font;
}

QFont WindowFont(QFont font) {
    QStringList families = font.families();
    // A generic name such as "Sans Serif" is no family, and Qt would pass it over.
    families.removeIf([](const QString& family) { return !QFontDatabase::hasFamily(family); });
    SetFamilies(font, families + FirstInstalled(WindowFamilies()));
    font.setPixelSize(std::min(QFontInfo(font).pixelSize(), kLargestPixels));
    return font;
}

bool JapaneseFontFound() {
    return !QFontDatabase::families(QFontDatabase::Japanese).isEmpty();
}

}  // namespace tolvex
