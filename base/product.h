// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include "base/text.h"

/// What the program says of itself. The version numbers come from the build.
namespace tolvex::product {

inline QString Title() {
    return QStringLiteral("Tolvex");
}

/// "Version 1.40.25": major, minor and revision without leading zeros.
inline QString VersionText() {
    return QStringLiteral("Version %1.%2.%3")
        .arg(TOLVEX_VERSION_MAJOR)
        .arg(TOLVEX_VERSION_MINOR)
        .arg(TOLVEX_VERSION_REVISION);
}

inline QString Description() {
    return Text::tr("AT90Sシリーズ用シリアルISPライタのプログラミングソフトウエア");
}

inline QString SupportAddress() {
    return QStringLiteral("https://tolvex.example/support");
}

inline QString Comments() {
    return Text::tr("ｻﾎﾟｰﾄﾍﾟｰｼﾞ : %1").arg(SupportAddress());
}

inline QString LicenseNote() {
    return Text::tr("MITライセンスで配布されているフリーソフトウエアです。");
}

}  // namespace tolvex::product
