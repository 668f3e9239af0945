// SPDX-License-Identifier: MIT
#pragma once

#include <QJsonObject>
#include <QString>

#include "image/hex_check.h"

namespace tolvex {

/// "12 行目: チェックサムが違います。"
QString HexFindingText(const HexFinding& finding);
/// {"line": 12, "fault": "checksum"}, with an "address" where there is one.
QJsonObject HexFindingJson(const HexFinding& finding);

}  // namespace tolvex
