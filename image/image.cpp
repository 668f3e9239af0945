// SPDX-License-Identifier: MIT
#include "image/image.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <algorithm>

namespace tolvex {

using namespace Qt::StringLiterals;

namespace {

/// The lowest `digits` hexadecimal digits of `value`.
QString HexDigits(int value, int digits) {
    const unsigned lowest = static_cast<unsigned>(value) & ((1U << (4 * digits)) - 1U);
    return QString::number(lowest, 16).toUpper().rightJustified(digits, u'0');
}
/// What the extension "hex" takes.
constexpr int kExtensionCharacters = 3;

/// A character outside the basic plane is two code units, which go together; half a pair would be
/// no file name. The cut stays inside the name, however short that is.
QString WithoutExtension(QString path) {
    const qsizetype nameStart = path.lastIndexOf(u'/') + 1;
    for (int i = 0; i < kExtensionCharacters && path.size() > nameStart; ++i) {
        const bool pair = path.size() > 1 && path.back().isLowSurrogate() &&
                          path.chopped(1).back().isHighSurrogate();
        path.chop(pair ? 2 : 1);
    }
    return path;
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

bool IsWritableTarget(const QString& path) {
    const QFileInfo there(path);
    return !there.exists() || there.isFile();
}

bool IsDataFileName(const QString& path) {
    return path.endsWith(u".eep"_s, Qt::CaseInsensitive);
}

QString DataFileNameFor(const QString& chosen) {
    return IsDataFileName(chosen) ? chosen : WithoutExtension(chosen) + u"eep"_s;
}

QString FindDataFile(const QString& chosen) {
    const QString derived = DataFileNameFor(chosen);
    const QFileInfo wanted(derived);
    if (wanted.isFile()) {
        return derived;
    }
    QStringList names = wanted.dir().entryList(QDir::Files, QDir::Name);
    names.removeIf([&](const QString& name) {
        return name.compare(wanted.fileName(), Qt::CaseInsensitive) != 0;
    });
    if (names.isEmpty()) {
        return derived;
    }
    const auto sameStem = std::ranges::find_if(
        names, [&](const QString& name) { return name.startsWith(wanted.completeBaseName()); });
    return wanted.dir().filePath(sameStem != names.end() ? *sameStem : names.first());
}

}  // namespace tolvex
