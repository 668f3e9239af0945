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
HexReadResult ReadRecords(QIODevice& device, ErrorFlag& flag, Store store) {
    QByteArray line;
    while (TakeHexLine(device, kLongestRecord, line)) {
        if (!line.startsWith(':')) {
            return HexReadResult::NoColon;
        }
        if (!StoreRecord(QString::fromLatin1(line), flag, store)) {
            return HexReadResult::Failed;
        }
    }
    return HexReadResult::Complete;
}

template <typename Image>
HexReadResult ReadFile(const QString& path, Image& image, ErrorFlag& flag,
                       HexReadResult (*read)(QIODevice&, Image&, ErrorFlag&)) {
    if (path.isEmpty()) {
        return HexReadResult::Complete;
    }
    QFile file(path);
    if (!FileExists(path) || !file.open(QIODevice::ReadOnly)) {
        return HexReadResult::Failed;
    }
    const HexReadResult result = read(file, image, flag);
    return file.error() == QFileDevice::NoError ? result : HexReadResult::Failed;
}

}  // namespace

HexReadResult ReadCodeHex(QIODevice& device, FlashImage& image, ErrorFlag& flag) {
    return ReadRecords(device, flag, [&image](std::size_t address, std::uint8_t byte) {
        if (address >= 0x10000) {
            return false;
        }
        // The file has a word's low byte first, the image its high byte.
        image[address ^ 1U] = byte;
        return true;
    });
}

HexReadResult ReadDataHex(QIODevice& device, EepromImage& image, ErrorFlag& flag) {
    return ReadRecords(device, flag, [&image](std::size_t address, std::uint8_t byte) {
        if (address >= image.size()) {
            return false;
        }
        image[address] = byte;
        return true;
    });
}

HexReadResult ReadCodeHex(const QString& path, FlashImage& image, ErrorFlag& flag) {
    return ReadFile<FlashImage>(path, image, flag, ReadCodeHex);
}

HexReadResult ReadDataHex(const QString& path, EepromImage& image, ErrorFlag& flag) {
    return ReadFile<EepromImage>(path, image, flag, ReadDataHex);
}

}  // namespace tolvex
