// SPDX-License-Identifier: MIT
#include "device/device_selection.h"

#include <gtest/gtest.h>

#include "tests/support/test_bench.h"

namespace tolvex {
namespace {

using namespace Qt::StringLiterals;
using testing::TestBench;
using L = OptionList;

TEST(DeviceSelection, SetsSizesCodeAndOptions) {
    const QList<L> none, fstrt{L::FSTRT}, rcen{L::RCEN}, bod{L::BODLEVEL, L::BODEN, L::CKSEL};
    const struct {
        QString name;
        std::uint8_t code;
        int words, bytes;
        QList<L> fuses;
    } cases[] = {{u"AT90S1200 (外部ｸﾛｯｸ)"_s, 0x11, 512, 64, none},
                 {u"AT90S1200A(内部RCｸﾛｯｸ1MHz)"_s, 0x11, 512, 64, none},
                 {u"AT90S2313"_s, 0x21, 1024, 128, none},
                 {u"AT90S2323"_s, 0x11, 1024, 128, fstrt},
                 {u"AT90S2333"_s, 0x22, 1024, 128, bod},
                 {u"AT90S2343"_s, 0x11, 1024, 128, rcen},
                 {u"AT90S4414"_s, 0x21, 2048, 256, none},
                 {u"AT90S4433"_s, 0x22, 2048, 256, bod},
                 {u"AT90S8515"_s, 0x21, 4096, 512, none},
                 {u"AT90S8535"_s, 0x22, 4096, 512, fstrt}};
    TestBench b(7);
    EXPECT_EQ(b.person.devices.size(), std::size(cases));
    int index = 0;
    for (const auto& c : cases) {
        b.bench.selection.SelectDevice(index);  // undoes what the one before showed
        EXPECT_EQ(b.person.devices[index], c.name);
        EXPECT_EQ(b.settings.values[u"device"_s], QString::number(index++));
        EXPECT_EQ(b.bench.state.device.deviceCode, c.code) << index;
        EXPECT_EQ(b.person.flashSize, u"Programメモリサイズ : %1 word"_s.arg(c.words));
        EXPECT_EQ(b.person.eepromSize, u"EEPROM メモリサイズ : %1 byte"_s.arg(c.bytes));
        for (const L list : kOptionLists) {
            EXPECT_EQ(b.person.optionShown[list], list == L::LockBit || c.fuses.contains(list));
        }
        EXPECT_EQ(b.person.fuseReadEnabled, !c.fuses.isEmpty()) << index;
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
    EXPECT_EQ(b.person.markedDevice, 8);
    EXPECT_TRUE(b.person.patchPanelShown);
    EXPECT_EQ(
        b.person.optionEntries[L::CKSEL].join(u'|'),
        u"4ms + 6 CK|6 CK|64ms + 16K CK|4ms + 16K CK|16K CK|64ms + 1K CK|4ms + 1K CK|1K CK"_s);
    EXPECT_EQ(b.person.optionEntries[L::LockBit].join(u'|'),
              u"書込み & ベリファイ 禁止|書込み禁止|プロテクトなし"_s);
    EXPECT_EQ(b.person.optionEntries[L::BODLEVEL].join(u'|'), u"4.0V|2.7V"_s);
    for (const L list : {L::FSTRT, L::RCEN, L::BODEN}) {
        EXPECT_EQ(b.person.optionEntries[list].join(u'|'), u"Enable|Disable"_s);
    }
    EXPECT_EQ(b.person.options.values(), (QList<int>{1, 0, 1, 1, 2, 2})) << "as in kOptionLists";
    // A new chip's fuses are preset, no other list.
    b.person.options = {{L::CKSEL, 7}, {L::LockBit, 0}, {L::FSTRT, 0}};
    b.bench.selection.SelectDevice(7);
    EXPECT_EQ(b.person.options[L::CKSEL], 2);
    EXPECT_EQ(b.person.options[L::LockBit], 0);
    EXPECT_EQ(b.person.options[L::FSTRT], 0);
}

}  // namespace
}  // namespace tolvex
