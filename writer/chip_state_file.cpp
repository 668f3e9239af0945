// SPDX-License-Identifier: MIT
#include "writer/chip_state_file.h"

#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSaveFile>
#include <algorithm>

namespace tolvex {

using namespace Qt::StringLiterals;

namespace {

QString Hex(const QByteArray& bytes) {
    return QString::fromLatin1(bytes.toHex().toUpper());
}

QString Hex(std::uint8_t byte) {
    return Hex(QByteArray(1, static_cast<char>(byte)));
}

/// Exactly `size` bytes, or nothing: QByteArray::fromHex alone would skip what is no digit.
std::optional<QByteArray> Unhex(const QJsonValue& value, qsizetype size) {
    const QByteArray text = value.toString().toUtf8();
    const auto isDigit = [](char c) {
        return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'F') || (c >= 'a' && c <= 'f');
    };
    if (text.size() != 2 * size || !std::ranges::all_of(text, isDigit)) {
        return std::nullopt;
    }
    return QByteArray::fromHex(text);
}

LoadedChip Failed(const QString& path, const QString& reason) {
    return u"state file %1: %2"_s.arg(path, reason);
}

LoadedChip FromJson(const QJsonObject& state, const QString& path) {
    const ChipModel* model = FindChipModel(state["device"_L1].toString());
    if (!model) {
        return Failed(path, u"\"device\" names no known chip"_s);
    }
    struct Field {
        const char16_t* key;
        qsizetype size;
        QByteArray bytes;
    };
    Field fields[] = {{u"flash", 2 * model->flashWords, {}},
                      {u"eeprom", model->eepromBytes, {}},
                      {u"lock", 1, {}},
                      {u"fuse", 1, {}}};
    for (Field& field : fields) {
        const auto bytes = Unhex(state[QStringView(field.key)], field.size);
        if (!bytes) {
            return Failed(path, u"\"%1\" is not %2 hexadecimal digits"_s.arg(QStringView(field.key))
                                    .arg(2 * field.size));
        }
        field.bytes = *bytes;
    }
    SimulatedChip chip(*model);
    chip.SetContents({fields[0].bytes, fields[1].bytes,
                      static_cast<std::uint8_t>(fields[2].bytes[0]),
                      static_cast<std::uint8_t>(fields[3].bytes[0])});
    return chip;
}

}  // namespace

LoadedChip LoadChip(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        return Failed(path, file.errorString());
    }
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(file.readAll(), &error);
    if (error.error != QJsonParseError::NoError) {
        return Failed(path, error.errorString());
    }
    return FromJson(document.object(), path);
}

std::optional<QString> SaveChip(const SimulatedChip& chip, const QString& path) {
    const ChipContents& contents = chip.Contents();
    const QJsonObject state{{u"device"_s, chip.Model().name.toString()},
                            {u"flash"_s, Hex(contents.flash)},
                            {u"eeprom"_s, Hex(contents.eeprom)},
                            {u"lock"_s, Hex(contents.lock)},
                            {u"fuse"_s, Hex(contents.fuses)}};
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(QJsonDocument(state).toJson()) < 0 ||
        !file.commit()) {
        return u"state file %1: %2"_s.arg(path, file.errorString());
    }
    return std::nullopt;
}

}  // namespace tolvex
