// SPDX-License-Identifier: MIT
#include "device/toolbar_sequences.h"

#include <gtest/gtest.h>

#include "tests/support/test_bench.h"

namespace tolvex {
namespace {

using namespace Qt::StringLiterals;
using testing::TestBench;

const QMap<OptionList, int> kStartUpOptions = {{OptionList::FSTRT, 1}, {OptionList::RCEN, 0},
                                               {OptionList::BODEN, 1}, {OptionList::BODLEVEL, 1},
                                               {OptionList::CKSEL, 2}, {OptionList::LockBit, 2}};

void MoveAllOptions(TestBench& b) {
    for (const OptionList list : kOptionLists) {
        b.person.options[list] = 1 - b.person.options[list];
    }
}

TEST(ToolbarSequences, EraseClearsTheChipAndTheListsOrSaysThatItFailed) {
    for (const char failing : {' ', 'P', 'e', 'L'}) {
        TestBench b(7);
        b.chip->ProgramFlashLow(3, 0);
        b.chip->ProgramLock(0xF9);  // so that the signature is asked for five times
        b.board.SetLetterFault(failing, FaultKind::Wrong);
        MoveAllOptions(b);
        auto options = b.person.options;
        b.bench.toolbar.Click(u"Erase");
        EXPECT_EQ(b.Wire().join(u','), u"S,V,v,T 22 00,s,s,s,s,s,P,e,L"_s);
        if (failing == ' ') {
            EXPECT_EQ(b.chip->ReadFlashLow(3), kErased);
            EXPECT_FALSE(b.chip->WriteProtected());
            EXPECT_EQ(b.person.options, kStartUpOptions);
            EXPECT_EQ(b.person.panels[1], u"Lock bit & Flash & EEPROM メモリクリアー完了。"_s);
            EXPECT_EQ(b.person.calls.filter(u"listing"_s), QStringList(u"eeprom listing"_s));
        } else {
            options[OptionList::LockBit] = 2;  // selected by the check that found the protection
            EXPECT_EQ(b.person.options, options);
            EXPECT_EQ(b.person.panels[1], u"Flash & EEPROM メモリクリアー失敗"_s);
            EXPECT_EQ(b.person.message, u"Flash & EEPROM メモリクリアー失敗"_s);
        }
    }
}

TEST(ToolbarSequences, ClearWorksWithoutAWriter) {
    TestBench b(3);
    b.FillImages(1);
    b.port.RefuseOpen();
    MoveAllOptions(b);
    b.bench.toolbar.Click(u"Clear");
    EXPECT_TRUE(b.port.Calls().isEmpty());
    EXPECT_EQ(b.bench.state.images.flash, MemoryImages().flash);
    EXPECT_EQ(b.bench.state.images.eeprom, MemoryImages().eeprom);
    EXPECT_EQ(b.person.options, kStartUpOptions);
    EXPECT_EQ(b.person.calls.filter(u"listing"_s),
              (QStringList{u"flash listing"_s, u"eeprom listing"_s}));
    EXPECT_EQ(b.person.panels[1], u"バッファーをクリアしました。"_s);
}

TEST(ToolbarSequences, FileButtonsRunTheMenusCommands) {
    TestBench b;
    b.bench.toolbar.Click(u"Open");
    b.bench.toolbar.Click(u"Save");
    b.bench.toolbar.Click(u"ReLoad");
    EXPECT_EQ(b.person.calls.filter(u"dialog"_s),
              (QStringList{u"open dialog コードファイル ＆ データファイルを開く"_s,
                           u"save dialog コードファイル ＆ データファイルの保存"_s}));
    EXPECT_FALSE(b.bench.state.names.ReloadFlag);
    b.bench.toolbar.Click(u"ComSelect");
    EXPECT_EQ(b.portDialogs, 1);
    b.person.calls.clear();
    b.bench.toolbar.Click(u"program");
    EXPECT_EQ(b.person.calls, QStringList(u"status 1: "_s)) << "no such key";
}

}  // namespace
}  // namespace tolvex
