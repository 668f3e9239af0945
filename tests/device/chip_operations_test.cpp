// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <QDir>

#include "tests/support/real_files.h"
#include "tests/support/test_bench.h"

namespace tolvex::testing {
namespace {

const QString kDetected = u"S,V,v,T 11 00,"_s;

/// Three words, "940C 1234 FFEE" in a listing, and two EEPROM bytes.
void FillAFewCells(MemoryImages& images) {
    constexpr std::uint8_t words[] = {0x94, 0x0C, 0x12, 0x34, 0xFF, 0xEE},
                           bytes[] = {0x5A, 0xFF, 0xA5};
    std::ranges::copy(words, images.flash.begin());
    std::ranges::copy(bytes, images.eeprom.begin());
}

// What is told meanwhile, the sweep over every fault at every exchange holds to a grammar.
TEST(ProgramOperation, GoesOverTheWire) {
    TestBench b;
    FillAFewCells(b.bench.state.images);
    const auto start = b.clock.Now();
    EXPECT_TRUE(b.Press(u"Program"_s));
    EXPECT_EQ(b.Wire().join(u','), kDetected +
                                       u"s,P,e,L,P,s,L,"
                                       "P,A 00 00,c 0C,C 94,c 34,C 12,c EE,C FF,L,"
                                       "P,A 00 00,D 5A,A 00 02,D A5,L,"
                                       "P,A 00 00,R,R,R,L,"
                                       "P,A 00 00,d,A 00 01,d,A 00 02,d,L"_s);
    EXPECT_GT(b.clock.Now() - start, std::chrono::milliseconds(1600)) << "1 s, and 0.1 s a 'L'";
}

TEST(ProgramOperation, WritesAndVerifiesAsFarAsTheImagesReach) {
    // A device, the Flash and EEPROM cells in use (none at all: random ones everywhere), the words
    // written, and the words and bytes verified.
    using Cells = QList<std::size_t>;
    const std::tuple<int, Cells, Cells, int, int, int> cases[] = {
        {0, {0}, {}, 2, 1, 1},  // the first word alone takes the second along
        {0, {}, {5}, 0, 1, 6},
        {0, {1023}, {63}, 512, 512, 64},
        {0, {0, 1024}, {63, 64}, 2, 1, 64},  // what lies beyond the chip does not count
        {8, {}, {}, 4096, 4096, 512}};
    for (const auto& [device, flash, eeprom, written, words, bytes] : cases) {
        TestBench b(device);
        if (flash.isEmpty() && eeprom.isEmpty()) {
            b.FillImages(1);
        }
        for (const std::size_t cell : flash) {
            b.bench.state.images.flash[cell] = 0;
        }
        for (const std::size_t cell : eeprom) {
            b.bench.state.images.eeprom[cell] = 0;
        }
        EXPECT_TRUE(b.Press(u"Program"_s));
        EXPECT_EQ(b.Wire().filter(u"C "_s).size(), written);
        EXPECT_EQ(b.Wire().count(u"R"_s), words);
        EXPECT_EQ(b.Wire().count(u"d"_s), bytes);
        EXPECT_EQ(b.chip->Contents().flash, b.FlashOfImages());
        EXPECT_EQ(b.chip->Contents().eeprom, b.EepromOfImages());
    }
    TestBench blank;
    EXPECT_TRUE(tbToolBar_ButtonClick(blank.bench, u"Program").program->nothingToWrite);
    EXPECT_EQ(blank.Wire().join(u','), kDetected + u"s,P,e,L"_s);
}

TEST(VerifyOperation, ReportsEveryDifferingCell) {
    TestBench b(8);
    b.bench.state.images.flash[0x1000] = 0x94;  // word 0x0800
    b.bench.state.images.flash[0x1001] = 0x0C;
    b.chip->ProgramFlashLow(0x800, 0x0D);
    b.chip->ProgramFlashHigh(0x800, 0x94);
    b.bench.state.images.eeprom[0x1FF] = 0x0A;
    EXPECT_FALSE(b.Press(u"Verify"_s));
    const QByteArray report =
        "Flash Program memory address verify\r\n\r\n"
        "Flash  Address(word) = 0800  Original Data = 940C   NG Data = 940D\r\n"
        "\r\nEEPROM data memory address verify\r\n\r\n"
        "EEPROM Address(byte) = 01FF  Original Data = 0A   NG Data = FF\r\n";
    EXPECT_EQ(Bytes(b.folder.filePath(u"avrvfy.txt"_s)), report);
    EXPECT_EQ(b.user.verifyReport, QString::fromLatin1(report).remove(u'\r'));
    EXPECT_EQ(b.user.message, u"ベリファイ　FLASH : NG / EEPROM : NG"_s);
}

TEST(ToolbarSequences, AListingThatCannotBeWrittenEndsTheChainAndIsTold) {
    const std::pair<QString, QString> cases[] = {
        {u"Program"_s, u"avrhex.txt"_s}, {u"Program"_s, u"avrvfy.txt"_s},
        {u"Erase"_s, u"avreep.txt"_s},   {u"Read"_s, u"avrhex.txt"_s},
        {u"Verify"_s, u"avrvfy.txt"_s},  {u"Clear"_s, u"avreep.txt"_s}};
    const QString told = u"リストファイルを書き込めないため、処理を途中で終了しました。"_s;
    for (const auto& [key, name] : cases) {
        TestBench b;
        FillAFewCells(b.bench.state.images);
        QFile::remove(b.folder.filePath(name));
        ASSERT_TRUE(QDir(b.folder.path()).mkdir(name));  // nothing can be written there
        EXPECT_FALSE(tbToolBar_ButtonClick(b.bench, key).ended);
        EXPECT_FALSE(b.board.InProgrammingMode());
        EXPECT_EQ(b.user.message, told);
        EXPECT_EQ(b.user.panels[1], told);
    }
}

TEST(ToolbarSequences, EraseClearsTheChipAndTheLists) {
    TestBench b(7);
    b.chip->ProgramFlashLow(3, 0);
    b.chip->ProgramLock(0xF9);  // so that the signature is asked for five times
    const auto startUp = b.bench.state.options;
    for (int& entry : b.bench.state.options.entries) {
        entry = 1 - entry;
    }
    EXPECT_TRUE(b.Press(u"Erase"_s));
    EXPECT_EQ(b.Wire().join(u','), u"S,V,v,T 22 00,s,s,s,s,s,P,e,L"_s);
    EXPECT_EQ(b.chip->ReadFlashLow(3), kErased);
    EXPECT_EQ(b.user.shownOptions, startUp);
    b.bench.state.options[OptionList::FSTRT] = 1 - startUp[OptionList::FSTRT];
    const auto moved = b.bench.state.options;
    b.board.SetLetterFault('L', FaultKind::Wrong);
    EXPECT_FALSE(b.Press(u"Erase"_s));
    EXPECT_EQ(b.bench.state.options, moved);
}

TEST(ToolbarSequences, ClearWorksWithoutAWriter) {
    TestBench b(3);
    b.FillImages(1);
    const auto startUp = std::exchange(b.bench.state.options, {});
    tbToolBar_ButtonClick(b.bench, u"Clear");
    EXPECT_TRUE(b.port.Calls().isEmpty());
    EXPECT_EQ(b.FlashOfImages() + b.EepromOfImages(), QByteArray(2048 + 128, '\xFF'));
    EXPECT_EQ(b.user.shownOptions, startUp);
    EXPECT_EQ(b.user.calls.filter(u"listing"_s).join(u", "), u"flash listing, eeprom listing"_s);
    EXPECT_EQ(b.user.panels[1], u"バッファーをクリアしました。"_s);
}

}  // namespace
}  // namespace tolvex::testing
