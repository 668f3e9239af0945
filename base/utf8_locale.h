// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

#ifdef Q_OS_UNIX
#include <langinfo.h>

#include <clocale>
#endif

namespace tolvex {

/// Before the application object: Qt wants UTF-8, takes it in any case, and from version 6.5 on
/// says so in every run under LANG=C.
inline void ChooseUtf8Locale() {
#ifdef Q_OS_UNIX
    std::setlocale(LC_ALL, "");
    if (qstrcmp(::nl_langinfo(CODESET), "UTF-8") != 0) {
        qputenv("LC_ALL", "C.UTF-8");
    }
#endif
}

}  // namespace tolvex
