// SPDX-License-Identifier: MIT
#include "image/hex_reader.h"

#include <QFile>

#include "image/hex_line.h"

namespace tolvex {

namespace {

constexpr qsizetype kDataStart = 9;
/// Nothing behind the 255th data byte is ever looked at.
constexpr qsizetype kLongestRecord = kDataStart + 2 * 255;

int ByteAt(QStringView line, qsizetype position, ErrorFlag& flag) {
    return HexValue4(u"0", u"0", line.mid(position, 1), line.mid(position + 1, 1), flag);
}

/// False when `store(address, byte)` refused a byte.
template <typename Store>
bool StoreRecord(QStringView line, ErrorFlag& flag, Store store) {
    const int count = ByteAt(line, 1, flag);
    const int address =
        HexValue4(line.mid(3, 1), line.mid(4, 1), line.mid(5, 1), line.mid(6, 1), flag);
    if (ByteAt(line, 7, flag) != 0) {
        return true;
    }
    for (int k = 0; k < count; ++k) {
        const int byte = ByteAt(line, kDataStart + 2 * k, flag);
        if (!store(static_cast<std::size_t>(address + k), static_cast<std::uint8_t>(byte))) {
            return false;
        }
    }
    return true;
}

template <typename Store>
HexReadResult ReadRecords(const QString& path, ErrorFlag& flag, Store store) {
    if (path.isEmpty()) {
        return HexReadResult::Complete;
    }
    QFile file(path);
    if (!FileExists(path) || !file.open(QIODevice::ReadOnly)) {
        return HexReadResult::Failed;
    }
    char first = 0;
    while (file.peek(&first, 1) == 1) {
        if (first != ':') {
            return HexReadResult::NoColon;
        }
        if (!StoreRecord(QString::fromLatin1(TakeHexLine(file, kLongestRecord)), flag, store)) {
            return HexReadResult::Failed;
        }
    }
    return file.error() == QFileDevice::NoError ? HexReadResult::Complete : HexReadResult::Failed;
}

}  // namespace

HexReadResult ReadCodeHex(const QString& path, FlashImage& image, ErrorFlag& flag) {
    return ReadRecords(path, flag, [&image](std::size_t address, std::uint8_t byte) {
        if (address >= 0x10000) {
            return false;
        }
        // The file has a word's low byte first, the image its high byte.
        image[address ^ 1U] = byte;
        return true;
    });
}

HexReadResult ReadDataHex(const QString& path, EepromImage& image, ErrorFlag& flag) {
    return ReadRecords(path, flag, [&image](std::size_t address, std::uint8_t byte) {
        if (address >= image.size()) {
            return false;
        }
        image[address] = byte;
        return true;
    });
}

}  // namespace tolvex
