// SPDX-License-Identifier: MIT
#include "cli/serial_number.h"

#include <QFileInfo>
#include <QLockFile>
#include <QRegularExpression>

#include "base/text.h"
#include "cli/synced_file.h"

namespace tolvex {

using namespace Qt::StringLiterals;

namespace {

struct NumberFormat {
    QLatin1StringView name;
    int bytes;
    bool bigEndian;
};
constexpr NumberFormat kNumberFormats[] = {{"u8"_L1, 1, false},
                                           {"u16le"_L1, 2, false},
                                           {"u16be"_L1, 2, true},
                                           {"u32le"_L1, 4, false},
                                           {"u32be"_L1, 4, true}};

constexpr quint32 kFirst = 1;
constexpr quint32 kLast = 4'000'000'000;
/// Longer than anyone keeps the file.
constexpr int kLockMilliseconds = 5000;

Failure NotWritten(const QString& path) {
    return {cause::FileNotWritten, Text::tr("シリアル番号のファイルを書けません: %1").arg(path)};
}

}  // namespace

Result<SerialPlace> ParseSerialPlace(const QString& text) {
    const Failure wrong{
        cause::WrongUse,
        Text::tr("--serial は eeprom:0x10=u16le や flash:0x3FE=text:SN%06d の形で指定します"
                 "（u8、u16le、u16be、u32le、u32be、text）") +
            u": "_s + text};
    static const QRegularExpression kPlace(
        u"^(flash|eeprom):(0x[0-9A-Fa-f]{1,5}|[0-9]{1,6})=([a-z0-9]+)(?::([ -~]+))?$"_s);
    static const QRegularExpression kNumber(u"%(?:0([1-9]))?d"_s);
    const auto match = kPlace.match(text);
    if (!match.hasMatch()) {
        return wrong;
    }
    SerialPlace place{.flash = match.captured(1) == u"flash",
                      .address = match.captured(2).toInt(nullptr, 0)};
    const QString format = match.captured(3), pattern = match.captured(4);
    if (format == u"text") {
        const auto number = kNumber.match(pattern);
        if (!number.hasMatch() || pattern.count(u'%') != 1) {
            return wrong;
        }
        place.before = pattern.left(number.capturedStart());
        place.after = pattern.mid(number.capturedEnd());
        place.digits = number.captured(1).toInt();
        return place;
    }
    for (const NumberFormat& row : kNumberFormats) {
        if (row.name == format && pattern.isEmpty()) {
            place.bytes = row.bytes;
            place.bigEndian = row.bigEndian;
            return place;
        }
    }
    return wrong;
}

QString SerialText(const SerialPlace& place, quint32 number) {
    const QString digits = QString::number(number).rightJustified(place.digits, u'0');
    return place.before + digits + place.after;
}

std::optional<QByteArray> SerialBytes(const SerialPlace& place, quint32 number) {
    if (place.bytes == 0) {
        const bool fits = place.digits == 0 || QString::number(number).size() <= place.digits;
        return fits ? std::optional(SerialText(place, number).toLatin1()) : std::nullopt;
    }
    if (place.bytes < 4 && number >> (8 * place.bytes) != 0) {
        return std::nullopt;
    }
    QByteArray bytes;
    for (int i = 0; i < place.bytes; ++i) {
        const int shift = 8 * (place.bigEndian ? place.bytes - 1 - i : i);
        bytes += static_cast<char>((number >> shift) & 0xFF);
    }
    return bytes;
}

bool PutSerial(const SerialPlace& place, quint32 number, const CurrentDevice& device,
               MemoryImages& images) {
    const auto bytes = SerialBytes(place, number);
    const int size = place.flash ? 2 * device.flashWords : device.eepromBytes;
    if (!bytes || place.address + bytes->size() > size) {
        return false;
    }
    auto cell = static_cast<std::size_t>(place.address);
    for (const char byte : *bytes) {
        // The file has a word's low byte first, the image its high byte.
        (place.flash ? images.flash[cell ^ 1U] : images.eeprom[cell]) =
            static_cast<std::uint8_t>(byte);
        ++cell;
    }
    return true;
}

Result<quint32> SerialNumbers::Next() const {
    QFile file(path_);
    if (!QFileInfo::exists(path_) && !QFileInfo(path_).isSymLink()) {
        return kFirst;
    }
    // More than a number, or none, may be anything: no guess is worth a number that is given twice.
    const bool open = QFileInfo(path_).isFile() && file.open(QIODevice::ReadOnly);
    const QByteArray text = open ? file.read(100).trimmed() : QByteArray();
    bool isNumber = false;
    const quint32 number = text.toUInt(&isNumber);
    if (!isNumber || number > kLast || text.startsWith('+')) {
        return Failure{cause::BadFile,
                       Text::tr("シリアル番号のファイルに番号がありません: %1").arg(path_)};
    }
    return number;
}

Result<quint32> SerialNumbers::Take() const {
    QLockFile lock(path_ + u".lock"_s);
    lock.setStaleLockTime(0);  // it is stale when its owner has ended, however long it has been
    if (!lock.tryLock(kLockMilliseconds)) {
        return NotWritten(path_);
    }
    const auto number = Next();
    if (!number) {
        return number;
    }
    // A link stays one.
    const QString real = QFileInfo(path_).canonicalFilePath();
    if (!ReplaceSynced(real.isEmpty() ? path_ : real, QByteArray::number(*number + 1) + '\n')) {
        return NotWritten(path_);
    }
    return number;
}

}  // namespace tolvex
