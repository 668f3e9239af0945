// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QIODevice>

namespace tolvex {

/// The rest of the line without its end, which is LF, CRLF or a lone CR; false when nothing is left
/// to read. Of an endless line (no HEX file at all) the first `most` bytes are kept and the others
/// passed over. Works on pipes too, whose end shows only when nothing comes any more.
bool TakeHexLine(QIODevice& device, qsizetype most, QByteArray& line);

}  // namespace tolvex
