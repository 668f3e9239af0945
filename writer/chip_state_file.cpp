// SPDX-License-Identifier: MIT
#include "writer/chip_state_file.h"

#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSaveFile>
#include <algorithm>
#include <cerrno>

#include "base/system_cause.h"
#include "base/text.h"

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
    return Text::tr("状態ファイル %1 を読めません: %2").arg(path, reason);
}

LoadedChip FromJson(const QJsonObject& state, const QString& path) {
    const ChipModel* model = FindChipModel(state["device"_L1].toString());
    if (!model) {
        return Failed(path, Text::tr("\"device\" が知らないチップです"));
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
            return Failed(path, Text::tr("\"%1\" が 16 進数 %2 桁ではありません")
                                    .arg(QStringView(field.key))
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
        return Failed(path, SystemCause(errno));
    }
    const QJsonDocument document = QJsonDocument::fromJson(file.readAll());
    if (document.isNull()) {
        return Failed(path, Text::tr("JSON ではありません"));
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
        return Text::tr("状態ファイル %1 を書けません: %2").arg(path, SystemCause(errno));
    }
    return std::nullopt;
}

}  // namespace tolvex
