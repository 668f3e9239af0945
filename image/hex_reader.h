// SPDX-License-Identifier: MIT
#pragma once

#include <QIODevice>
#include <functional>

#include "image/image.h"

namespace tolvex {

enum class HexReadResult {
    Complete,
    NoColon,  ///< stopped at a line that does not begin with a colon
    Failed    ///< the file can't be opened or read, or a byte lies beyond the image
};

/// Called now and then while a long file is read, so that a window can repaint; false = give the
/// read up, which then counts as failed.
using ReadProgress = std::function<bool()>;

/// The rest of the line without its end, which is LF, CRLF or a lone CR; false when nothing is left
/// to read. Of an endless line (no HEX file at all) the first `limit` bytes are kept and the others
/// skipped. Works on pipes too, whose end shows only when nothing comes any more.
bool TakeHexLine(QIODevice& device, qsizetype limit, QByteArray& line);

/// Reads an Intel HEX file into an image. Bytes stored before a stop stay; cells that the file does
/// not name keep what they hold. An empty path reads nothing and is `Complete`.
///
/// Of a record only count, address, type and data matter. The count alone says how many bytes are
/// taken, checksum digits included where the line is too short; the checksum is never compared.
/// Records of a type other than 0 are skipped, the end record too: the file's end ends the read. A
/// character that is no upper-case hexadecimal digit counts as 0 and sets `flag`, which changes
/// nothing else here.
///
/// Lines end with LF, CRLF or a lone CR. A blank line is a line without a colon.
HexReadResult ReadCodeHex(const QString& path, FlashImage& image, ErrorFlag& flag,
                          const ReadProgress& progress = {});
HexReadResult ReadDataHex(const QString& path, EepromImage& image, ErrorFlag& flag,
                          const ReadProgress& progress = {});
/// The same from an open device, to its end.
HexReadResult ReadCodeHex(QIODevice& device, FlashImage& image, ErrorFlag& flag);
HexReadResult ReadDataHex(QIODevice& device, EepromImage& image, ErrorFlag& flag);

}  // namespace tolvex
