// SPDX-License-Identifier: MIT
#include "image/hex_writer.h"

#include <cerrno>
#include <fstream>
#include <span>
#include <vector>

#include "image/native_path.h"

namespace tolvex {

using namespace Qt::StringLiterals;

namespace {

constexpr std::size_t kBytesPerRecord = 16;

QByteArray DataRecord(std::size_t address, std::span<const std::uint8_t> bytes) {
    QString record = u":10"_s + HexWord4(static_cast<int>(address)) + u"00"_s;
    for (const std::uint8_t byte : bytes) {
        record += HexByte(byte);
    }
    AppendChecksum(record);
    return record.toLatin1() + "\r\n";
}

/// `bytes` in file order.
QByteArray Records(std::span<const std::uint8_t> bytes) {
    QByteArray text;
    for (std::size_t address = 0; address < bytes.size(); address += kBytesPerRecord) {
        text += DataRecord(address, bytes.subspan(address, kBytesPerRecord));
    }
    return text + ":00000001FF\r\n";
}

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

QByteArray CodeHexText(const FlashImage& image, std::int32_t flashWords) {
    std::vector<std::uint8_t> bytes(2 * static_cast<std::size_t>(flashWords));
    for (std::size_t address = 0; address < bytes.size(); ++address) {
        // The image has a word's high byte first, the file its low byte.
        bytes[address] = image[address ^ 1U];
    }
    return Records(bytes);
}

QByteArray DataHexText(const EepromImage& image, std::int32_t eepromBytes) {
    return Records(std::span(image).first(static_cast<std::size_t>(eepromBytes)));
}

HexWriteResult WriteCodeHex(const QString& path, const FlashImage& image, std::int32_t flashWords) {
    return Write(path, CodeHexText(image, flashWords));
}

HexWriteResult WriteDataHex(const QString& path, const EepromImage& image,
                            std::int32_t eepromBytes) {
    return Write(path, DataHexText(image, eepromBytes));
}

void AppendChecksum(QString& record) {
    int sum = 0;
    for (qsizetype position = 1; position < record.size(); position += 2) {
        sum += QStringView(record).mid(position, 2).toInt(nullptr, 16);
    }
    record += HexByte((256 - sum % 256) % 256);
}

}  // namespace tolvex
