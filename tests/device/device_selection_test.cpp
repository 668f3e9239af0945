// SPDX-License-Identifier: MIT
#include "device/device_selection.h"

#include <gtest/gtest.h>

#include "device/catalogue.h"
#include "tests/support/test_bench.h"
#include "writer/chip_models.h"

namespace tolvex {
namespace {

using namespace Qt::StringLiterals;
using testing::TestBench;

TEST(Catalogue, AgreesWithTheChipsThatTheBoardKnows) {
    int index = 0;
    for (const DeviceRecord& record : Catalogue()) {
        const ChipModel* model = FindChipModel(QString::number(index++));
        ASSERT_NE(model, nullptr);
        EXPECT_EQ(record.name, model->name);
        EXPECT_EQ(record.flashWords, model->flashWords);
        EXPECT_EQ(record.eepromBytes, model->eepromBytes);
        EXPECT_EQ(FlashWordsOfSizeCode(SimulatedChip(*model).ReadSignature()[1]),
                  record.flashWords);
    }
    EXPECT_EQ(index, 10);
    EXPECT_EQ(FindDevice(u"AT90S4434"_s), nullptr);
    EXPECT_EQ(FindDevice(u"at90s2313"_s), nullptr);
}

struct GroupCase {
    int index;
    std::uint8_t code;
    QList<OptionList> shown;
    QString flash, eeprom;
};

TEST(DeviceSelection, SetsSizesCodeAndOptions) {
    using L = OptionList;
    const GroupCase cases[] = {
        {0,
         0x11,
         {L::LockBit},
         u"Programメモリサイズ : 512 word"_s,
         u"EEPROM メモリサイズ : 64 byte"_s},
        {3,
         0x11,
         {L::LockBit, L::FSTRT},
         u"Programメモリサイズ : 1024 word"_s,
         u"EEPROM メモリサイズ : 128 byte"_s},
        {5,
         0x11,
         {L::LockBit, L::RCEN},
         u"Programメモリサイズ : 1024 word"_s,
         u"EEPROM メモリサイズ : 128 byte"_s},
        {7,
         0x22,
         {L::LockBit, L::BODEN, L::BODLEVEL, L::CKSEL},
         u"Programメモリサイズ : 2048 word"_s,
         u"EEPROM メモリサイズ : 256 byte"_s},
        {9,
         0x22,
         {L::LockBit, L::FSTRT},
         u"Programメモリサイズ : 4096 word"_s,
         u"EEPROM メモリサイズ : 512 byte"_s},
    };
    TestBench b(4);  // each choice comes after another one, and must undo what that showed
    for (const GroupCase& c : cases) {
        EXPECT_TRUE(b.bench.selection.SelectDevice(c.index));
        EXPECT_EQ(b.settings.values[u"device"_s], QString::number(c.index));
        EXPECT_EQ(b.bench.device.deviceCode, c.code);
        EXPECT_EQ(b.person.flashSize, c.flash);
        EXPECT_EQ(b.person.eepromSize, c.eeprom);
        for (const OptionList list : kOptionLists) {
            EXPECT_EQ(b.person.optionShown[list], c.shown.contains(list)) << c.index;
        }
        EXPECT_EQ(b.person.fuseReadEnabled, c.shown.size() > 1) << c.index;
        EXPECT_TRUE(b.person.fuseWriteEnabled);
        EXPECT_EQ(b.person.flashListing.count(u'\n'), b.bench.device.flashWords / 8);
        EXPECT_EQ(b.person.eepromListing.count(u'\n'), b.bench.device.eepromBytes / 16);
    }
}

TEST(DeviceSelection, PresetsOnlyTheFusesOfTheNewChip) {
    TestBench b(4);
    b.person.options[OptionList::CKSEL] = 7;
    b.person.options[OptionList::LockBit] = 0;
    b.person.options[OptionList::FSTRT] = 0;
    b.bench.selection.SelectDevice(7);
    EXPECT_EQ(b.person.options[OptionList::CKSEL], 2);
    EXPECT_EQ(b.person.options[OptionList::LockBit], 0);
    EXPECT_EQ(b.person.options[OptionList::FSTRT], 0);
}

TEST(DeviceSelection, StartsWithTheStoredDeviceAndAllListsFilled) {
    TestBench b;
    b.settings.values[u"device"_s] = u"8"_s;
    b.bench.selection.FillDeviceLists();
    EXPECT_EQ(b.person.devices.size(), 10);
    EXPECT_EQ(b.person.markedDevice, 8);
    EXPECT_EQ(b.bench.device.name, u"AT90S8515"_s);
    EXPECT_EQ(b.person.optionEntries[OptionList::CKSEL].value(6), u"4ms + 1K CK"_s);
    EXPECT_EQ(b.person.optionEntries[OptionList::LockBit],
              (QStringList{u"書込み & ベリファイ 禁止"_s, u"書込み禁止"_s, u"プロテクトなし"_s}));
    EXPECT_EQ(b.person.options[OptionList::RCEN], 0);
    EXPECT_EQ(b.person.options[OptionList::BODLEVEL], 1);
    EXPECT_TRUE(b.person.patchPanelShown);
}

TEST(DeviceSelection, ADamagedStoredDeviceIsTheFirst) {
    for (const QString& stored : {u"10"_s, u"-1"_s, u"AT90S2313"_s, QString(u""_s)}) {
        TestBench b(3);
        b.settings.values[u"device"_s] = stored;
        b.bench.selection.FillDeviceLists();
        EXPECT_EQ(b.person.markedDevice, 0);
        EXPECT_EQ(b.settings.values[u"device"_s], u"0"_s);
    }
}

TEST(DeviceSelection, NoChoiceChangesNothingOfTheDevice) {
    TestBench b(2);
    b.bench.selection.SelectDevice(-1);
    EXPECT_EQ(b.bench.device.flashWords, 1024);
    EXPECT_EQ(b.person.flashSize, u"Programメモリサイズ : 1024 word"_s);
}

}  // namespace
}  // namespace tolvex
