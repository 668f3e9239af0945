// SPDX-License-Identifier: MIT
#include "writer/chip_state_file.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>

namespace tolvex {
namespace {

using namespace Qt::StringLiterals;

QByteArray Contents(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void Put(const QString& path, const QByteArray& bytes) {
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(bytes);
}

TEST(ChipStateFile, BringsEveryChipBack) {
    QTemporaryDir dir;
    const QString path = dir.filePath(u"state.json"_s);
    for (const ChipModel& model : ChipModels()) {
        SCOPED_TRACE(model.name.toUtf8().constData());
        SimulatedChip chip(model);
        chip.ProgramFlashLow(0, 0x0C);
        chip.ProgramFlashHigh(model.flashWords - 1, 0x94);
        chip.ProgramEeprom(model.eepromBytes - 1, 0x5A);
        chip.ProgramFuses(0xA6);
        chip.ProgramLock(0xFD);
        ASSERT_EQ(SaveChip(chip, path), QString());
        const LoadedChip loaded = LoadChip(path);
        ASSERT_TRUE(loaded.chip) << loaded.error.toStdString();
        EXPECT_EQ(&loaded.chip->Model(), &model);
        EXPECT_EQ(loaded.chip->Contents(), chip.Contents());
    }
}

TEST(ChipStateFile, IsReadableByOtherPrograms) {
    QTemporaryDir dir;
    const QString path = dir.filePath(u"state.json"_s);
    SimulatedChip chip(*FindChipModel(u"AT90S2343"));
    chip.ProgramFlashLow(0, 0xCD);
    chip.ProgramFlashHigh(0, 0xAB);
    chip.ProgramEeprom(0, 0x1E);
    chip.ProgramLock(0xF9);
    ASSERT_EQ(SaveChip(chip, path), QString());
    const QJsonObject state = QJsonDocument::fromJson(Contents(path)).object();
    EXPECT_EQ(state.keys().join(u' '), u"device eeprom flash fuse lock"_s);
    EXPECT_EQ(state[u"device"_s].toString(), u"AT90S2343"_s);
    EXPECT_EQ(state[u"flash"_s].toString(), u"CDAB"_s + QString(4092, u'F'));
    EXPECT_EQ(state[u"eeprom"_s].toString(), u"1E"_s + QString(254, u'F'));
    EXPECT_EQ(state[u"lock"_s].toString(), u"F9"_s);
    EXPECT_EQ(state[u"fuse"_s].toString(), u"FE"_s);
}

TEST(ChipStateFile, ReportsDamage) {
    struct Case {
        const char* what;
        QString key;
        QJsonValue value;  // undefined = the key is missing
        QString reason;
    };
    const Case cases[] = {
        {"no chip", u"device"_s, u"AT90S9999"_s, u"\"device\" names no known chip"_s},
        {"no device", u"device"_s, QJsonValue::Undefined, u"\"device\" names no known chip"_s},
        {"short Flash", u"flash"_s, QString(2046, u'F'),
         u"\"flash\" is not 2048 hexadecimal digits"_s},
        {"blank in Flash", u"flash"_s, u"0 "_s + QString(2046, u'F'),
         u"\"flash\" is not 2048 hexadecimal digits"_s},
        {"no EEPROM", u"eeprom"_s, QJsonValue::Undefined,
         u"\"eeprom\" is not 128 hexadecimal digits"_s},
        {"long EEPROM", u"eeprom"_s, QString(130, u'0'),
         u"\"eeprom\" is not 128 hexadecimal digits"_s},
        {"number for lock", u"lock"_s, 249, u"\"lock\" is not 2 hexadecimal digits"_s},
        {"fuse of no digits", u"fuse"_s, u"XY"_s, u"\"fuse\" is not 2 hexadecimal digits"_s},
    };
    QTemporaryDir dir;
    const QString path = dir.filePath(u"state.json"_s);
    ASSERT_EQ(SaveChip(SimulatedChip(ChipModels()[0]), path), QString());
    const QJsonObject whole = QJsonDocument::fromJson(Contents(path)).object();
    for (const Case& c : cases) {
        QJsonObject state = whole;
        state[c.key] = c.value;
        Put(path, QJsonDocument(state).toJson());
        const LoadedChip loaded = LoadChip(path);
        EXPECT_FALSE(loaded.chip) << c.what;
        EXPECT_EQ(loaded.error, u"state file %1: %2"_s.arg(path, c.reason)) << c.what;
    }
    Put(path, QJsonDocument(whole).toJson().chopped(10));
    EXPECT_FALSE(LoadChip(path).chip);
    EXPECT_FALSE(LoadChip(path).error.isEmpty());
    EXPECT_FALSE(LoadChip(dir.filePath(u"missing"_s)).chip);
}

TEST(ChipStateFile, SaysSoWhenItCannotBeWritten) {
    QTemporaryDir dir;
    const QString path = dir.filePath(u"no such folder/state.json"_s);
    EXPECT_TRUE(SaveChip(SimulatedChip(ChipModels()[0]), path).startsWith(u"state file "_s));
}

}  // namespace
}  // namespace tolvex
