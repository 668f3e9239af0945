// SPDX-License-Identifier: MIT
#include "device/lock_fuse_bits.h"

#include <gtest/gtest.h>

#include "device/catalogue.h"
#include "device/fuse_encoding.h"
#include "tests/support/test_bench.h"

namespace tolvex {
namespace {

using namespace Qt::StringLiterals;
using testing::DetectionWire;
using testing::Recorder;
using testing::TestBench;
using L = OptionList;

const QString kReadDone = u"Lock/Fuse bit リードが完了しました。"_s;
const QString kWriteDone = u"Lock/Fuse bit ライトが完了しました。"_s;

TEST(FuseEncoding, EveryChoiceOfABrownOutChipGoesBothWays) {
    for (int bits = 0; bits < 32; ++bits) {
        Recorder lists, read;
        lists.options = {{L::CKSEL, bits % 8}, {L::BODEN, bits / 8 % 2}, {L::BODLEVEL, bits / 16}};
        const auto byte = EncodeFuses(FuseGroup::BOD_CKSEL, lists);
        EXPECT_EQ(byte, 0xA0 + bits);
        DecodeFuses(FuseGroup::BOD_CKSEL, byte.value_or(0), read);
        EXPECT_EQ(read.options, lists.options);
    }
}

TEST(FuseEncoding, LockBitsThatNoEntryStandsForLeaveTheList) {
    constexpr int kAsItWas = 1;
    const struct {
        FuseGroup group;
        std::uint8_t byte;
        int entry;
    } cases[] = {
        {FuseGroup::FSTRT, 0x3F, 0},     {FuseGroup::FSTRT, 0x41, 1},
        {FuseGroup::RCEN, 0xFE, 2},      {FuseGroup::RCEN, 0xBF, kAsItWas},
        {FuseGroup::BOD_CKSEL, 0xF9, 0}, {FuseGroup::BOD_CKSEL, 0x04, 1},
        {FuseGroup::BOD_CKSEL, 0x07, 2}, {FuseGroup::BOD_CKSEL, 0xFB, kAsItWas},
    };
    for (const auto& c : cases) {
        Recorder lists;
        lists.options[L::LockBit] = kAsItWas;
        DecodeLock(c.group, c.byte, lists);
        EXPECT_EQ(lists.options[L::LockBit], c.entry) << int{c.byte};
    }
}

TEST(LockFuseBits, WhatIsWrittenIsReadBackForEveryChip) {
    for (int index = 0; index < static_cast<int>(Catalogue().size()); ++index) {
        if (Catalogue()[static_cast<std::size_t>(index)].fuseGroup == FuseGroup::LockOnly) {
            continue;
        }
        TestBench b(index);
        const QMap<L, int> written = {{L::FSTRT, 0},    {L::RCEN, 1},  {L::BODEN, 0},
                                      {L::BODLEVEL, 0}, {L::CKSEL, 5}, {L::LockBit, 1}};
        b.person.options = written;
        b.bench.lockFuse.cmdFuseWrite_Click();
        EXPECT_EQ(b.person.message, kWriteDone);
        b.bench.selection.SelectDevice(index);  // presets the fuses again
        b.person.options[L::LockBit] = 2;
        b.bench.lockFuse.cmdFuseRead_Click();
        EXPECT_EQ(b.person.message, kReadDone);
        for (const L list : kOptionLists) {
            if (b.person.optionShown[list]) {
                EXPECT_EQ(b.person.options[list], written[list]) << index << " " << int(list);
            }
        }
    }
}

TEST(LockFuseBits, GoesOverTheWireFusesFirst) {
    const struct {
        int device;
        std::uint8_t code;
        QMap<L, int> options;
        QString written, read;
    } cases[] = {
        // clang-format off
        {0, 0x11, {{L::LockBit, 0}}, u"P,l F9,L"_s, u""_s},
        {3, 0x11, {{L::FSTRT, 0}, {L::LockBit, 1}}, u"P,f BE,L,P,l FD,L"_s, u"P,F,L"_s},
        {5, 0x11, {{L::RCEN, 1}}, u"P,f BF,L,P,l FF,L"_s, u"P,F,L"_s},
        {4, 0x22, {}, u"P,f BA,L,P,l FF,L"_s, u"P,r,L,P,F,L"_s},
        {7, 0x22, {{L::CKSEL, 7}, {L::BODEN, 0}, {L::BODLEVEL, 0}}, u"P,f A7,L,P,l FF,L"_s, u"P,r,L,P,F,L"_s},
        // clang-format on
    };
    for (const auto& c : cases) {
        for (const QString& wire : {c.written, c.read}) {
            TestBench b(c.device);
            b.person.options.insert(c.options);
            wire == c.written ? b.bench.lockFuse.cmdFuseWrite_Click()
                              : b.bench.lockFuse.cmdFuseRead_Click();
            const QStringList expected = DetectionWire(c.code) << u"P"_s << u"s"_s << u"L"_s;
            EXPECT_EQ(b.Wire(), expected + wire.split(u',', Qt::SkipEmptyParts));
        }
    }
}

TEST(LockFuseBits, FailuresAreToldWithTheButtonsOwnText) {
    const struct {
        const char* what;
        char letter;  ///< 0: the chip is protected
        QString read, write;
    } cases[] = {
        {"fuse command", 'f', kReadDone, u"Lock/Fuse bit ライトに失敗しました。"_s},
        {"read command", 'F', u"Lock/Fuse bit リードに失敗しました。"_s, kWriteDone},
        {"protected chip", 0, u"設定デバイスと、ソケット上のデバイスがミスマッチです。"_s,
         u"デバイスがプロテクトされています。\r\n"
         "チップイレース(<消 Erase>ボタン)を実行してください。"_s},
    };
    for (const auto& c : cases) {
        for (const bool write : {false, true}) {
            TestBench b(3);
            if (c.letter != 0) {
                b.board.SetLetterFault(c.letter, FaultKind::Silent);
            } else {
                b.chip->ProgramLock(0xF9);
            }
            write ? b.bench.lockFuse.cmdFuseWrite_Click() : b.bench.lockFuse.cmdFuseRead_Click();
            EXPECT_EQ(b.person.message, write ? c.write : c.read) << c.what;
        }
    }
    TestBench b(3);
    b.port.RefuseOpen();
    b.bench.lockFuse.cmdFuseRead_Click();
    b.bench.lockFuse.cmdFuseWrite_Click();
    EXPECT_EQ(b.person.calls.filter(u"Lock/Fuse"_s), QStringList()) << "no writer, no word";
}

}  // namespace
}  // namespace tolvex
