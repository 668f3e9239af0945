// SPDX-License-Identifier: MIT
#include "writer/chip_state_file.h"

#include <gtest/gtest.h>

#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>

#include "tests/support/real_files.h"

namespace tolvex {
namespace {

using namespace Qt::StringLiterals;

TEST(ChipStateFile, DamageIsReportedAndTheRestComesBack) {
    QTemporaryDir dir;
    const QString path = dir.filePath(u"state.json"_s);
    SimulatedChip chip(*FindChipModel(u"AT90S2333"));
    chip.ProgramFlashLow(0, 0x0C);
    chip.ProgramFlashHigh(1023, 0x94);
    chip.ProgramEeprom(127, 0x5A);
    chip.ProgramFuses(0xA6);
    chip.ProgramLock(0xFD);
    ASSERT_EQ(SaveChip(chip, path), QString());
    const LoadedChip back = LoadChip(path);
    ASSERT_TRUE(back.chip) << back.error.toStdString();
    EXPECT_EQ(&back.chip->Model(), &chip.Model());
    EXPECT_EQ(back.chip->Contents(), chip.Contents());

    const struct {
        QString key;
        QString value;
        QString reason;
    } cases[] = {
        // clang-format off
        {u"device"_s, u"AT90S9999"_s, u"\"device\" names no known chip"_s},
        {u"flash"_s, QString(4094, u'F'), u"\"flash\" is not 4096 hexadecimal digits"_s},
        {u"eeprom"_s, u"0 "_s + QString(254, u'F'), u"\"eeprom\" is not 256 hexadecimal digits"_s},
        {u"fuse"_s, u"XY"_s, u"\"fuse\" is not 2 hexadecimal digits"_s},
        // clang-format on
    };
    const QJsonObject whole = QJsonDocument::fromJson(testing::Bytes(path)).object();
    EXPECT_TRUE(whole[u"flash"_s].toString().startsWith(u"0CFFFF"_s)) << "low byte first";
    for (const auto& c : cases) {
        QJsonObject state = whole;
        state[c.key] = c.value;
        testing::PutFile(path, QJsonDocument(state).toJson());
        EXPECT_EQ(LoadChip(path).error, u"state file %1: %2"_s.arg(path, c.reason));
    }
    testing::PutFile(path, QJsonDocument(whole).toJson().chopped(10));
    EXPECT_FALSE(LoadChip(path).error.isEmpty());
    EXPECT_FALSE(LoadChip(dir.filePath(u"missing"_s)).chip);
    EXPECT_TRUE(SaveChip(chip, dir.filePath(u"no such folder/x"_s)).startsWith(u"state file "_s));
}

}  // namespace
}  // namespace tolvex
