// SPDX-License-Identifier: MIT
#pragma once

#include <QTranslator>
#include <memory>

#include "base/settings.h"

namespace tolvex {

enum class Language { Japanese, English };

/// The window's: the first of the environment variable TOLVEX_LANGUAGE and the setting `Language`
/// that is "en" or "ja" counts; Japanese without either. The locale of the desktop does not matter.
Language WindowLanguage(const Settings& settings);
/// The terminal's: TOLVEX_LANGUAGE, if it is "en" or "ja". Else as tools do: Japanese in a Japanese
/// locale (the first of LC_ALL, LC_MESSAGES and LANG that is not empty, else the system's setting),
/// English in any other.
Language TerminalLanguage();

/// From now on all texts are in this language, as long as the result lives. Needs a
/// QCoreApplication; comes before any text is made. Null for Japanese, whose texts stand in the
/// code.
std::unique_ptr<QTranslator> InstallTexts(Language language);

}  // namespace tolvex
