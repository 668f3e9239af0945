// SPDX-License-Identifier: MIT
#include "device/fuse_encoding.h"

#include <gtest/gtest.h>

#include "tests/support/recorder.h"

namespace tolvex {
namespace {

using testing::Recorder;

TEST(FuseEncoding, LockEntries) {
    EXPECT_EQ(EncodeLock(0), 0xF9);
    EXPECT_EQ(EncodeLock(1), 0xFD);
    EXPECT_EQ(EncodeLock(2), 0xFF);
}

TEST(FuseEncoding, OneFuseChips) {
    Recorder lists;
    for (const int entry : {0, 1}) {
        lists.options[OptionList::FSTRT] = entry;
        lists.options[OptionList::RCEN] = 1 - entry;
        EXPECT_EQ(EncodeFuses(FuseGroup::FSTRT, lists), entry == 0 ? 0xBE : 0xBF);
        EXPECT_EQ(EncodeFuses(FuseGroup::RCEN, lists), entry == 0 ? 0xBF : 0xBE);
    }
    EXPECT_FALSE(EncodeFuses(FuseGroup::LockOnly, lists).has_value());
}

TEST(FuseEncoding, EveryChoiceOfABrownOutChipGoesBothWays) {
    for (int level = 0; level < 2; ++level) {
        for (int enable = 0; enable < 2; ++enable) {
            for (int delay = 0; delay < 8; ++delay) {
                Recorder lists;
                lists.options[OptionList::CKSEL] = delay;
                lists.options[OptionList::BODEN] = enable;
                lists.options[OptionList::BODLEVEL] = level;
                const auto byte = EncodeFuses(FuseGroup::BOD_CKSEL, lists);
                ASSERT_TRUE(byte.has_value());
                EXPECT_EQ(*byte, 0xA0 + delay + 0x08 * enable + 0x10 * level);

                Recorder read;
                DecodeFuses(FuseGroup::BOD_CKSEL, *byte, read);
                EXPECT_EQ(read.options, lists.options);
            }
        }
    }
}

TEST(FuseEncoding, ReadingSelectsTheFuseOfTheChipsGroupAlone) {
    for (const int bit : {0, 1}) {
        Recorder fstrt;
        DecodeFuses(FuseGroup::FSTRT, static_cast<std::uint8_t>(0x40 | bit), fstrt);
        EXPECT_EQ(fstrt.options, (QMap<OptionList, int>{{OptionList::FSTRT, bit}}));
        Recorder rcen;
        DecodeFuses(FuseGroup::RCEN, static_cast<std::uint8_t>(0xFE | bit), rcen);
        EXPECT_EQ(rcen.options, (QMap<OptionList, int>{{OptionList::RCEN, bit}}));
    }
}

TEST(FuseEncoding, LockBitsThatNoEntryStandsForLeaveTheList) {
    constexpr int kAsItWas = 1;
    struct LockCase {
        FuseGroup group;
        std::uint8_t byte;
        int entry;
    };
    for (const LockCase& c : {
             LockCase{FuseGroup::FSTRT, 0x3F, 0},
             {FuseGroup::FSTRT, 0x41, 1},
             {FuseGroup::RCEN, 0xFE, 2},
             {FuseGroup::RCEN, 0xBF, kAsItWas},
             {FuseGroup::BOD_CKSEL, 0xF9, 0},
             {FuseGroup::BOD_CKSEL, 0x04, 1},
             {FuseGroup::BOD_CKSEL, 0x07, 2},
             {FuseGroup::BOD_CKSEL, 0xFB, kAsItWas},
         }) {
        Recorder lists;
        lists.options[OptionList::LockBit] = kAsItWas;
        DecodeLock(c.group, c.byte, lists);
        EXPECT_EQ(lists.options[OptionList::LockBit], c.entry) << int{c.byte};
    }
}

}  // namespace
}  // namespace tolvex
