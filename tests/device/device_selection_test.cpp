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
}

TEST(DeviceSelection, SetsSizesCodeAndOptions) {
    using L = OptionList;
    const struct {
        int index;
        std::uint8_t code;
        QList<L> shown;
        int words, bytes;
    } cases[] = {
        {0, 0x11, {L::LockBit}, 512, 64},
        {3, 0x11, {L::LockBit, L::FSTRT}, 1024, 128},
        {5, 0x11, {L::LockBit, L::RCEN}, 1024, 128},
        {7, 0x22, {L::LockBit, L::BODEN, L::BODLEVEL, L::CKSEL}, 2048, 256},
        {9, 0x22, {L::LockBit, L::FSTRT}, 4096, 512},
    };
    TestBench b(4);  // each choice comes after another one, and must undo what that showed
    for (const auto& c : cases) {
        b.bench.selection.SelectDevice(c.index);
        EXPECT_EQ(b.settings.values[u"device"_s], QString::number(c.index));
        EXPECT_EQ(b.bench.state.device.deviceCode, c.code);
        EXPECT_EQ(b.person.flashSize, u"Programメモリサイズ : %1 word"_s.arg(c.words));
        EXPECT_EQ(b.person.eepromSize, u"EEPROM メモリサイズ : %1 byte"_s.arg(c.bytes));
        for (const OptionList list : kOptionLists) {
            EXPECT_EQ(b.person.optionShown[list], c.shown.contains(list)) << c.index;
        }
        EXPECT_EQ(b.person.fuseReadEnabled, c.shown.size() > 1) << c.index;
        EXPECT_EQ(b.person.flashListing.count(u'\n'), c.words / 8);
        EXPECT_EQ(b.person.eepromListing.count(u'\n'), c.bytes / 16);
    }
    b.bench.selection.SelectDevice(-1);  // no choice changes nothing of the device
    EXPECT_EQ(b.bench.state.device.flashWords, 4096);
}

TEST(DeviceSelection, StartsWithTheStoredDeviceAndAllListsFilled) {
    TestBench b;
    b.settings.values[u"device"_s] = u"10"_s;
    b.bench.selection.FillDeviceLists();
    EXPECT_EQ(b.settings.values[u"device"_s], u"0"_s) << "damaged: the first";
    b.settings.values[u"device"_s] = u"8"_s;
    b.bench.selection.FillDeviceLists();
    EXPECT_EQ(b.person.devices.size(), 10);
    EXPECT_EQ(b.person.markedDevice, 8);
    EXPECT_EQ(b.bench.state.device.name, u"AT90S8515"_s);
    EXPECT_EQ(b.person.optionEntries[OptionList::CKSEL].value(6), u"4ms + 1K CK"_s);
    EXPECT_EQ(b.person.optionEntries[OptionList::LockBit],
              (QStringList{u"書込み & ベリファイ 禁止"_s, u"書込み禁止"_s, u"プロテクトなし"_s}));
    EXPECT_EQ(b.person.options[OptionList::RCEN], 0);
    EXPECT_EQ(b.person.options[OptionList::BODLEVEL], 1);
    EXPECT_TRUE(b.person.patchPanelShown);

    // A new chip's fuses are preset, no other list.
    b.person.options = {{OptionList::CKSEL, 7}, {OptionList::LockBit, 0}, {OptionList::FSTRT, 0}};
    b.bench.selection.SelectDevice(7);
    EXPECT_EQ(b.person.options[OptionList::CKSEL], 2);
    EXPECT_EQ(b.person.options[OptionList::LockBit], 0);
    EXPECT_EQ(b.person.options[OptionList::FSTRT], 0);
}

}  // namespace
}  // namespace tolvex
