// SPDX-License-Identifier: MIT
#include "image/hex_line.h"

namespace tolvex {

QByteArray TakeHexLine(QFile& file, qsizetype most) {
    QByteArray line;
    char c = 0;
    while (file.getChar(&c) && c != '\n') {
        if (c == '\r') {
            char next = 0;
            if (file.getChar(&next) && next != '\n') {
                file.ungetChar(next);
            }
            break;
        }
        if (line.size() < most) {
            line += c;
        }
    }
    return line;
}

}  // namespace tolvex
