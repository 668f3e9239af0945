// SPDX-License-Identifier: MIT
#include "image/hex_line.h"

namespace tolvex {

bool TakeHexLine(QIODevice& device, qsizetype most, QByteArray& line) {
    line.clear();
    char c = 0;
    if (!device.getChar(&c)) {
        return false;
    }
    do {
        if (c == '\n') {
            return true;
        }
        if (c == '\r') {
            char next = 0;
            if (device.getChar(&next) && next != '\n') {
                device.ungetChar(next);
            }
            return true;
        }
        if (line.size() < most) {
            line += c;
        }
    } while (device.getChar(&c));
    return true;
}

}  // namespace tolvex
