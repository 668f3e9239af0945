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

}  // namespace tolvex
