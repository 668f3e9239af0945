// SPDX-License-Identifier: MIT
#include "device/lock_fuse_bits.h"

#include <gtest/gtest.h>

#include "device/catalogue.h"
#include "tests/support/test_bench.h"

namespace tolvex {
namespace {

using namespace Qt::StringLiterals;
using testing::DetectionWire;
using testing::TestBench;

const QStringList kCheck{u"P"_s, u"s"_s, u"L"_s};

QStringList Bracket(const QString& command) {
    return {u"P"_s, command, u"L"_s};
}

TEST(LockFuseBits, WhatIsWrittenIsReadBackForEveryChip) {
    for (int index = 0; index < static_cast<int>(Catalogue().size()); ++index) {
        const FuseGroup group = Catalogue()[static_cast<std::size_t>(index)].fuseGroup;
        if (group == FuseGroup::LockOnly) {
            continue;
        }
        TestBench b(index);
        b.person.options = {{OptionList::FSTRT, 0}, {OptionList::RCEN, 1},
                            {OptionList::BODEN, 0}, {OptionList::BODLEVEL, 0},
                            {OptionList::CKSEL, 5}, {OptionList::LockBit, 1}};
        const auto written = b.person.options;
        b.bench.lockFuse.cmdFuseWrite_Click();
        EXPECT_EQ(b.person.message, u"Lock/Fuse bit ライトが完了しました。"_s);
        b.bench.selection.SelectDevice(index);  // presets the fuses again
        b.person.options[OptionList::LockBit] = 2;
        b.bench.lockFuse.cmdFuseRead_Click();
        EXPECT_EQ(b.person.message, u"Lock/Fuse bit リードが完了しました。"_s);
        EXPECT_EQ(b.person.options[OptionList::LockBit], 1);
        for (const OptionList list : kOptionLists) {
            if (b.person.optionShown[list]) {
                EXPECT_EQ(b.person.options[list], written[list]) << index << " " << int(list);
            }
        }
    }
}

struct WriteCase {
    int device;
    std::uint8_t code;
    QMap<OptionList, int> options;
    QStringList wire;
};

TEST(LockFuseBits, WritesTheFusesFirst) {
    const WriteCase cases[] = {
        {0, 0x11, {{OptionList::LockBit, 0}}, Bracket(u"l F9"_s)},
        {3,
         0x11,
         {{OptionList::FSTRT, 0}, {OptionList::LockBit, 1}},
         Bracket(u"f BE"_s) + Bracket(u"l FD"_s)},
        {4, 0x22, {}, Bracket(u"f BA"_s) + Bracket(u"l FF"_s)},
        {7,
         0x22,
         {{OptionList::CKSEL, 7}, {OptionList::BODEN, 0}, {OptionList::BODLEVEL, 0}},
         Bracket(u"f A7"_s) + Bracket(u"l FF"_s)},
    };
    for (const WriteCase& c : cases) {
        TestBench b(c.device);
        for (auto option = c.options.begin(); option != c.options.end(); ++option) {
            b.person.options[option.key()] = option.value();
        }
        b.bench.lockFuse.cmdFuseWrite_Click();
        EXPECT_EQ(b.Wire(), DetectionWire(c.code) + kCheck + c.wire);
    }
}

TEST(LockFuseBits, ReadsWhatTheChipsGroupHas) {
    TestBench brownOut(4);
    brownOut.bench.lockFuse.cmdFuseRead_Click();
    EXPECT_EQ(brownOut.Wire(), DetectionWire(0x22) + kCheck + Bracket(u"r"_s) + Bracket(u"F"_s));
    TestBench oneFuse(5);
    oneFuse.bench.lockFuse.cmdFuseRead_Click();
    EXPECT_EQ(oneFuse.Wire(), DetectionWire(0x11) + kCheck + Bracket(u"F"_s));
}

TEST(LockFuseBits, FailuresAreToldWithTheButtonsOwnText) {
    struct FailureCase {
        const char* what;
        char letter;
        bool locked;
        QString read, write;
    };
    const QString mismatch = u"設定デバイスと、ソケット上のデバイスがミスマッチです。"_s;
    const QString isProtected =
        u"デバイスがプロテクトされています。\r\n"
        "チップイレース(<消 Erase>ボタン)を実行してください。"_s;
    const FailureCase cases[] = {
        {"fuse command", 'f', false, u"Lock/Fuse bit リードが完了しました。"_s,
         u"Lock/Fuse bit ライトに失敗しました。"_s},
        {"read command", 'F', false, u"Lock/Fuse bit リードに失敗しました。"_s,
         u"Lock/Fuse bit ライトが完了しました。"_s},
        {"protected chip", 0, true, mismatch, isProtected},
    };
    for (const FailureCase& c : cases) {
        for (const bool write : {false, true}) {
            TestBench b(3);
            if (c.letter != 0) {
                b.board.SetLetterFault(c.letter, FaultKind::Silent);
            }
            if (c.locked) {
                b.chip->ProgramLock(0xF9);
            }
            write ? b.bench.lockFuse.cmdFuseWrite_Click() : b.bench.lockFuse.cmdFuseRead_Click();
            EXPECT_EQ(b.person.message, write ? c.write : c.read) << c.what;
        }
    }
}

TEST(LockFuseBits, WithoutAWriterNothingElseIsSaid) {
    TestBench b(3);
    b.port.RefuseOpen();
    b.bench.lockFuse.cmdFuseRead_Click();
    b.bench.lockFuse.cmdFuseWrite_Click();
    EXPECT_EQ(b.person.calls.filter(u"Lock/Fuse"_s).size(), 0);
}

}  // namespace
}  // namespace tolvex
