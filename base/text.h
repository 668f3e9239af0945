// SPDX-License-Identifier: MIT
#pragma once

#include <QCoreApplication>

namespace tolvex {

/// Every text that a person sees goes through `Text::tr("…")`: the Japanese one stands in the code
/// and is what shows where no other language is installed (base/language.h). One context for the
/// whole program, so a text has one translation wherever it stands. In a constant table it is
/// marked with QT_TRANSLATE_NOOP("Tolvex", "…") and goes through `Text::tr` when it is shown.
struct Text {
    Q_DECLARE_TR_FUNCTIONS(Tolvex)
};

/// One sentence after the other: in English, a blank stands between them.
inline QString Sentences(const QString& first, const QString& second) {
    return Text::tr("%1%2").arg(first, second);
}

/// "3 words" of the Flash, "1 byte" of the EEPROM.
inline QString WordCount(int count) {
    return Text::tr("%n word", nullptr, count);
}
inline QString ByteCount(int count) {
    return Text::tr("%n byte", nullptr, count);
}

}  // namespace tolvex
