// SPDX-License-Identifier: MIT
#include "image/srecord.h"

#include <QBuffer>
#include <numeric>

#include "image/hex_reader.h"

namespace tolvex {

namespace {

constexpr qsizetype kBytesPerRecord = 16;
constexpr qsizetype kLongestLine = 2 + 2 * 256;
constexpr QByteArrayView kHexBase = ":020000040001F9", kHexUnknown = ":00000006FA",
                         kHexNothing = ":0400000300000000F9", kHexEnd = ":00000001FF";

quint8 Sum(const QByteArray& bytes) {
    return std::accumulate(bytes.begin(), bytes.end(), quint8{0}, [](quint8 sum, char byte) {
        return static_cast<quint8>(sum + static_cast<quint8>(byte));
    });
}

char Low(quint32 value) {
    return static_cast<char>(value & 0xFF);
}

/// `content`: address and data, of at most 252 bytes.
QByteArray Record(char type, const QByteArray& content) {
    QByteArray record = Low(static_cast<quint32>(content.size() + 1)) + content;
    record += static_cast<char>(~Sum(record));
    return QByteArray("S") + type + record.toHex().toUpper() + "\r\n";
}

QByteArray Address(qsizetype address) {
    return QByteArray(1, Low(static_cast<quint32>(address >> 8))) +
           Low(static_cast<quint32>(address));
}

/// Bytes of the address that a record of the type has; 0 = no type that there is.
int AddressBytes(char type) {
    constexpr int kBytes[] = {2, 2, 3, 4, 0, 2, 3, 4, 3, 2};
    return type >= '0' && type <= '9' ? kBytes[type - '0'] : 0;
}

bool IsDigits(const QByteArray& text) {
    return text.size() % 2 == 0 && QByteArray::fromHex(text).toHex() == text.toLower();
}

QByteArray HexOfData(const QByteArray& record, int addressBytes) {
    quint32 address = 0;
    for (const char byte : record.mid(1, addressBytes)) {
        address = (address << 8) | static_cast<quint8>(byte);
    }
    if (address > 0xFFFF) {
        return kHexBase.toByteArray();
    }
    const QByteArray data = record.mid(1 + addressBytes, record.size() - addressBytes - 2);
    const QByteArray hex = Low(static_cast<quint32>(data.size())) +
                           Address(static_cast<qsizetype>(address)) + '\0' + data;
    // What the sum is off by stays in it.
    const auto off = static_cast<quint8>(Sum(record) + 1);
    const char checksum = static_cast<char>(off - Sum(hex));
    return ':' + (hex + checksum).toHex().toUpper();
}

/// `records`: the data records so far, which a count record proves, `counted` then: some tools
/// write no end record.
QByteArray HexOfLine(const QByteArray& line, int& records, bool& counted) {
    const char type = line.size() > 1 ? line[1] : '\0';
    const int addressBytes = AddressBytes(type);
    if (!(line.startsWith('S') || line.startsWith('s')) || addressBytes == 0) {
        return kHexUnknown.toByteArray();
    }
    const QByteArray digits = line.mid(2);
    const QByteArray record = QByteArray::fromHex(digits);
    if (!IsDigits(digits)) {
        return ":?";
    }
    if (record.size() < 2 + addressBytes || record.size() != 1 + static_cast<quint8>(record[0])) {
        return ":00";
    }
    if (type >= '1' && type <= '3') {
        ++records;
        return HexOfData(record, addressBytes);
    }
    const bool isCount = type == '5' || type == '6';
    const int count = record.mid(1, addressBytes).toHex().toInt(nullptr, 16);
    const bool good = Sum(record) == 0xFF && (!isCount || count == records);
    counted = counted || (isCount && good);
    QByteArray hex = (type >= '7' ? kHexEnd : kHexNothing).toByteArray();
    if (!good) {
        hex.back() = '0';
    }
    return hex;
}

}  // namespace

QByteArray SRecordText(const QByteArray& bytes) {
    QByteArray text = Record('0', Address(0) + "tolvex");
    quint32 records = 0;
    for (qsizetype address = 0; address < bytes.size(); address += kBytesPerRecord) {
        text += Record('1', Address(address) + bytes.mid(address, kBytesPerRecord));
        ++records;
    }
    return text + Record('5', Address(records)) + Record('9', Address(0));
}

QByteArray HexOfSRecords(const QByteArray& text) {
    QBuffer lines;
    lines.setData(text);
    lines.open(QIODevice::ReadOnly);
    QByteArray hex, line;
    int records = 0;
    bool counted = false;
    while (TakeHexLine(lines, kLongestLine + 1, line)) {
        hex += HexOfLine(line, records, counted) + '\n';
    }
    return counted && !hex.contains(kHexEnd) ? hex + kHexEnd.toByteArray() + '\n' : hex;
}

}  // namespace tolvex
