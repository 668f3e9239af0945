// SPDX-License-Identifier: MIT
#include <QFile>
#include <QFileInfo>

#include "image/image.h"

namespace tolvex {

namespace {

/// The lowest `digits` hexadecimal digits of `value`.
QString HexDigits(int value, int digits) {
    const unsigned lowest = static_cast<unsigned>(value) & ((1U << (4 * digits)) - 1U);
    return QString::number(lowest, 16).toUpper().rightJustified(digits, u'0');
}

}  // namespace

int HexDigitValue(QStringView digit, ErrorFlag& flag) {
    if (digit.size() == 1) {
        const char16_t c = digit.front().unicode();
        if (c >= u'0' && c <= u'9') {
            return c - u'0';
        }
        if (c >= u'A' && c <= u'F') {
            return c - u'A' + 10;
        }
    }
    flag.Set();
    return 0;
}

int HexValue4(QStringView d1, QStringView d2, QStringView d3, QStringView d4, ErrorFlag& flag) {
    int value = 0;
    for (const QStringView digit : {d1, d2, d3, d4}) {
        value = value * 16 + HexDigitValue(digit, flag);
    }
    return value;
}

int ParseHex4(const QString& text, ErrorFlag& flag) {
    // Character by character: upper-casing the whole text would turn one ligature into two letters
    // that pass for digits.
    QString digits = text;
    for (QChar& c : digits) {
        c = c.toUpper();
    }
    if (!digits.isEmpty()) {
        digits = digits.rightJustified(4, u'0');
    }
    const QStringView view(digits);
    return HexValue4(view.mid(0, 1), view.mid(1, 1), view.mid(2, 1), view.mid(3, 1), flag);
}

QString HexByte(int value) {
    return HexDigits(value, 2);
}

QString HexWord4(int value) {
    return HexDigits(value, 4);
}

bool FileExists(const QString& path) {
    return QFileInfo(path).isFile() && QFile(path).open(QIODevice::ReadOnly);
}

bool TakesFile(const QString& path) {
    const QFileInfo there(path);
    return !there.exists() || there.isFile();
}

}  // namespace tolvex
