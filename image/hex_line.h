// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QFile>

namespace tolvex {

/// The rest of the line without its end, which is LF, CRLF or a lone CR. Of an endless line (no HEX
/// file at all) the first `most` bytes are kept and the others passed over.
QByteArray TakeHexLine(QFile& file, qsizetype most);

}  // namespace tolvex
