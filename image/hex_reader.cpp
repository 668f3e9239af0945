// SPDX-License-Identifier: MIT
#include "image/hex_reader.h"

#include <QFile>
#include <algorithm>

namespace tolvex {

namespace {

constexpr qsizetype kDataStart = 9;
/// Nothing behind the 255th data byte is ever looked at.
constexpr qsizetype kLongestRecord = kDataStart + 2 * 255;
/// Some hundredths of a second, and more than any chip's file has.
constexpr qint64 kBytesPerCall = 512 * 1024;

/// Calls `progress` while it is read.
class ProgressFile final : public QFile {
  public:
    ProgressFile(const QString& path, const ReadProgress& progress)
        : QFile(path), progress_(progress) {}

    bool GaveUp() const { return gaveUp_; }

  protected:
    qint64 readData(char* data, qint64 limit) override {
        if (progress_ && sinceCall_ >= kBytesPerCall) {
            sinceCall_ = 0;
            gaveUp_ = gaveUp_ || !progress_();
        }
        const qint64 got = gaveUp_ ? -1 : QFile::readData(data, limit);
        sinceCall_ += std::max<qint64>(got, 0);
        return got;
    }

  private:
    const ReadProgress& progress_;
    qint64 sinceCall_ = 0;
    bool gaveUp_ = false;
};

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
        if (!store(static_cast<std::size_t>(address) + static_cast<std::size_t>(k),
                   static_cast<std::uint8_t>(byte))) {
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
                       const ReadProgress& progress,
                       HexReadResult (*read)(QIODevice&, Image&, ErrorFlag&)) {
    if (path.isEmpty()) {
        return HexReadResult::Complete;
    }
    ProgressFile file(path, progress);
    if (!FileExists(path) || !file.open(QIODevice::ReadOnly)) {
        return HexReadResult::Failed;
    }
    const HexReadResult result = read(file, image, flag);
    const bool whole = file.error() == QFileDevice::NoError && !file.GaveUp();
    return whole ? result : HexReadResult::Failed;
}

}  // namespace

bool TakeHexLine(QIODevice& device, qsizetype limit, QByteArray& line) {
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
        if (line.size() < limit) {
            line += c;
        }
    } while (device.getChar(&c));
    return true;
}

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

HexReadResult ReadCodeHex(const QString& path, FlashImage& image, ErrorFlag& flag,
                          const ReadProgress& progress) {
    return ReadFile<FlashImage>(path, image, flag, progress, ReadCodeHex);
}

HexReadResult ReadDataHex(const QString& path, EepromImage& image, ErrorFlag& flag,
                          const ReadProgress& progress) {
    return ReadFile<EepromImage>(path, image, flag, progress, ReadDataHex);
}

}  // namespace tolvex
