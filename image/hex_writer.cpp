// SPDX-License-Identifier: MIT
#include "image/hex_writer.h"

#include <cerrno>
#include <fstream>

#include "image/native_path.h"

namespace tolvex {

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype kBytesPerRecord = 16;

/// A standard stream, because it leaves the system's reason for a refused open in errno; QFile
/// reports every one as the same open error.
HexWriteResult Write(const QString& path, const QByteArray& text) {
    if (!IsWritableTarget(path)) {
        return HexWriteResult::Failed;
    }
    errno = 0;
    std::ofstream file(NativePath(path), std::ios::binary | std::ios::trunc);
    if (!file) {
        const bool refused = errno == EACCES || errno == EPERM || errno == EROFS;
        return refused ? HexWriteResult::AccessRefused : HexWriteResult::Failed;
    }
    file << text.constData();
    // A full disk often shows only when the buffered lines leave.
    file.close();
    return file ? HexWriteResult::Written : HexWriteResult::Failed;
}

}  // namespace

QByteArray CodeBytes(const FlashImage& image, std::int32_t flashWords) {
    QByteArray bytes(2 * qsizetype{flashWords}, '\0');
    for (qsizetype address = 0; address < bytes.size(); ++address) {
        // The image has a word's high byte first, the file its low byte.
        bytes[address] = static_cast<char>(image[static_cast<std::size_t>(address) ^ 1U]);
    }
    return bytes;
}

QByteArray DataBytes(const EepromImage& image, std::int32_t eepromBytes) {
    return {reinterpret_cast<const char*>(image.data()), eepromBytes};
}

QByteArray HexText(const QByteArray& bytes) {
    QByteArray text;
    for (qsizetype address = 0; address < bytes.size(); address += kBytesPerRecord) {
        QString record = u":10"_s + HexWord4(static_cast<int>(address)) + u"00"_s;
        for (const char byte : bytes.mid(address, kBytesPerRecord)) {
            record += HexByte(static_cast<std::uint8_t>(byte));
        }
        AppendChecksum(record);
        text += record.toLatin1() + "\r\n";
    }
    return text + ":00000001FF\r\n";
}

HexWriteResult WriteCodeHex(const QString& path, const FlashImage& image, std::int32_t flashWords) {
    return Write(path, HexText(CodeBytes(image, flashWords)));
}

HexWriteResult WriteDataHex(const QString& path, const EepromImage& image,
                            std::int32_t eepromBytes) {
    return Write(path, HexText(DataBytes(image, eepromBytes)));
}

void AppendChecksum(QString& record) {
    int sum = 0;
    for (qsizetype position = 1; position < record.size(); position += 2) {
        sum += QStringView(record).mid(position, 2).toInt(nullptr, 16);
    }
    record += HexByte((256 - sum % 256) % 256);
}

}  // namespace tolvex
