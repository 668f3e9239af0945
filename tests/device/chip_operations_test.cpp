// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <QDir>

#include "device/catalogue.h"
#include "tests/support/real_files.h"
#include "tests/support/test_bench.h"

namespace tolvex {
namespace {

using namespace Qt::StringLiterals;
using testing::TestBench;

const QString kVerified = u"ベリファイ　FLASH : OK / EEPROM : OK"_s;
const QString kDetected = u"S,V,v,T 11 00,"_s;

/// Three words, "940C 1234 FFEE" in a listing, and two EEPROM bytes.
void FillAFewCells(MemoryImages& images) {
    constexpr std::uint8_t words[] = {0x94, 0x0C, 0x12, 0x34, 0xFF, 0xEE},
                           bytes[] = {0x5A, 0xFF, 0xA5};
    std::ranges::copy(words, images.flash.begin());
    std::ranges::copy(bytes, images.eeprom.begin());
}

const QString kProgramWire =
    u"P,s,L,P,A 00 00,c 0C,C 94,c 34,C 12,c EE,C FF,L,"
    "P,A 00 00,D 5A,A 00 02,D A5,L,"_s;
const QString kVerifyWire = u"P,A 00 00,R,R,R,L,P,A 00 00,d,A 00 01,d,A 00 02,d,L"_s;

TEST(ProgramOperation, GoesOverTheWireAndTellsEveryStepInOrder) {
    TestBench b;
    FillAFewCells(b.bench.state.images);
    const auto start = b.clock.Now();
    const ChainResult result = b.bench.toolbar.Click(u"Program");
    EXPECT_TRUE(result.ended && result.program->Verified());
    EXPECT_EQ(b.Wire().join(u','), kDetected + u"s,P,e,L,"_s + kProgramWire + kVerifyWire);
    EXPECT_GT(b.clock.Now() - start, std::chrono::milliseconds(1600)) << "1 s, and 0.1 s a 'L'";
    const QString closed = u"close message"_s;
    const QStringList seen = {
        // clang-format off
        u"status 1: "_s, u"progress: ライタと通信中！"_s,
        u"status 1: ｺﾏﾝﾄﾞ送信 : Select device command T , 0x11"_s,
        u"status 1: ライタを検出しました。 COM1"_s, closed,
        u"progress: Eraseing Flash & EEPROM memory !"_s, closed,
        u"progress: Flash Program Memory Programming !"_s, closed,
        u"progress: EEPROM Data Memory Programming !"_s, closed,
        u"progress: Flash Program Memory Verifying !"_s, u"progress: EEPROM Data Memory Verifying !"_s,
        u"status 1: "_s + kVerified, u"message OK: "_s + kVerified, u"status 1: プログラム終了しました。"_s,
        // clang-format on
    };
    EXPECT_EQ(b.person.Seen(), seen);
    EXPECT_EQ(b.person.calls.filter(u"listing"_s).join(u", "),
              u"eeprom listing, flash listing, eeprom listing"_s);
    EXPECT_FALSE(b.person.calls.contains(u"verify report"_s));
}

TEST(ProgramOperation, WritesAndVerifiesAsFarAsTheImagesReach) {
    const struct {
        int device;
        QList<std::size_t> flashCells, eepromCells;  ///< none at all: random ones everywhere
        int wordsWritten, wordsVerified, bytesVerified;
    } cases[] = {{0, {0}, {}, 2, 1, 1},  // the first word alone takes the second along
                 {0, {}, {5}, 0, 1, 6},
                 {0, {1023}, {63}, 512, 512, 64},
                 {0, {0, 1024}, {63, 64}, 2, 1, 64},  // what lies beyond the chip does not count
                 {8, {}, {}, 4096, 4096, 512}};
    for (const auto& c : cases) {
        TestBench b(c.device);
        if (c.device == 8) {
            b.FillImages(1);
        }
        for (const std::size_t cell : c.flashCells) {
            b.bench.state.images.flash[cell] = 0;
        }
        for (const std::size_t cell : c.eepromCells) {
            b.bench.state.images.eeprom[cell] = 0;
        }
        EXPECT_TRUE(b.bench.toolbar.Click(u"Program").program->Verified());
        EXPECT_EQ(b.Wire().filter(u"C "_s).size(), c.wordsWritten);
        EXPECT_EQ(b.Wire().count(u"R"_s), c.wordsVerified);
        EXPECT_EQ(b.Wire().count(u"d"_s), c.bytesVerified);
        EXPECT_EQ(b.chip->Contents().flash, b.FlashOfImages());
        EXPECT_EQ(b.chip->Contents().eeprom, b.EepromOfImages());
        testing::Recorder::Progress last{};
        for (const auto& step : b.person.progress) {  // within a phase the bar only moves on
            EXPECT_TRUE(step.maximum != last.maximum || step.value == 0 ||
                        step.value >= last.value);
            last = step;
        }
        EXPECT_EQ(last.value, last.maximum);
    }
    TestBench blank;
    EXPECT_TRUE(blank.bench.toolbar.Click(u"Program").program->nothingToWrite);
    EXPECT_EQ(blank.Wire().join(u','), kDetected + u"s,P,e,L"_s);
    EXPECT_EQ(blank.person.message, u"Lock bit & プログラム/EEPROMデータ メモリクリアー完了。"_s);
}

TEST(VerifyOperation, ReportsEveryDifferingCell) {
    TestBench b(8);
    b.bench.state.images.flash[0x1000] = 0x94;  // word 0x0800
    b.bench.state.images.flash[0x1001] = 0x0C;
    b.chip->ProgramFlashLow(0x800, 0x0D);
    b.chip->ProgramFlashHigh(0x800, 0x94);
    b.bench.state.images.eeprom[0x1FF] = 0x0A;
    EXPECT_FALSE(b.bench.toolbar.Click(u"Verify").verify->Matches());
    const QByteArray report =
        "Flash Program memory address verify\r\n\r\n"
        "Flash  Address(word) = 0800  Original Data = 940C   NG Data = 940D\r\n"
        "\r\nEEPROM data memory address verify\r\n\r\n"
        "EEPROM Address(byte) = 01FF  Original Data = 0A   NG Data = FF\r\n";
    EXPECT_EQ(testing::Bytes(b.folder.filePath(u"avrvfy.txt"_s)), report);
    EXPECT_EQ(b.person.verifyReport, QString::fromLatin1(report).remove(u'\r'));
    EXPECT_EQ(b.Wire().count(u"R"_s), 4096) << "the whole chip";
    EXPECT_EQ(b.Wire().count(u"d"_s), 512);
    const QString text = u"ベリファイ　FLASH : NG / EEPROM : NG"_s;
    EXPECT_EQ(
        b.person.calls.last(4).join(u", "),
        u"verify report, status 1: %1, message OK: %1, status 1: ベリファイ終了しました。"_s.arg(
            text));
}

TEST(ReadOperation, FillsTheImagesAndLeavesTheRest) {
    TestBench b(2);
    b.FillImages(9);
    b.chip->SetContents({b.FlashOfImages(), b.EepromOfImages(), 0xFF, 0xFF});
    b.bench.state.images = {};
    b.bench.state.images.flash[2048] = 0x77;
    b.bench.state.images.eeprom[128] = 0x66;
    EXPECT_TRUE(b.bench.toolbar.Click(u"Read").read->Complete());
    EXPECT_EQ(b.FlashOfImages(), b.chip->Contents().flash);
    EXPECT_EQ(b.EepromOfImages(), b.chip->Contents().eeprom);
    EXPECT_EQ(b.bench.state.images.flash[2048], 0x77);
    EXPECT_EQ(b.bench.state.images.eeprom[128], 0x66);
    EXPECT_EQ(b.Wire().mid(4, 6).join(u','), u"P,s,L,P,A 00 00,R"_s);
    EXPECT_EQ(b.Wire().mid(9 + 1024, 4).join(u','), u"L,P,A 00 00,d"_s);
    EXPECT_EQ(b.person.panels[1], u"リード終了しました。"_s);
    EXPECT_EQ(b.person.calls.filter(u"listing"_s).join(u", "), u"flash listing, eeprom listing"_s);
}

/// What a chain did to both memories: "FE" = all of it, "F" = the EEPROM failed.
QString Done(const ChainResult& r) {
    const auto [flash, eeprom, whole] =
        r.program
            ? std::tuple(r.program->flashWritten, r.program->eepromWritten, r.program->Verified())
        : r.read
            ? std::tuple(r.read->flashRead, r.read->eepromRead, r.read->Complete())
            : std::tuple(r.verify->flashCompared, r.verify->eepromCompared, r.verify->Matches());
    EXPECT_EQ(whole, flash && eeprom);
    return QString(flash ? u"F"_s : u""_s) + (eeprom ? u"E"_s : u""_s);
}

// The sweep over every fault at every exchange looks at what is told.
TEST(ChipOperations, WhatFailedDoesNotCountAsDoneAndTheRestStillRuns) {
    // clang-format off
    const struct { QString key; char letter; int occurrence; FaultKind fault; QString done, last, message; } cases[] = {
        {u"Program"_s, 'e', 1, FaultKind::Wrong, u"FE"_s, u"L"_s, kVerified},
        {u"Program"_s, 'c', 3, FaultKind::Wrong, u"E"_s, u"L"_s, kVerified},
        {u"Program"_s, 'D', 1, FaultKind::Silent, u"F"_s, u"L"_s, kVerified},
        {u"Program"_s, 'c', 2, FaultKind::HangUp, u""_s, u"c 34"_s, u"ベリファイ　通信エラー"_s},
        {u"Verify"_s, 'R', 512, FaultKind::Silent, u"E"_s, u"L"_s, kVerified},  // the last word goes by the one before
        {u"Verify"_s, 'd', 64, FaultKind::Silent, u"F"_s, u"L"_s, u"ベリファイ　通信エラー"_s},
        {u"Read"_s, 'R', 101, FaultKind::Silent, u""_s, u"R"_s, u""_s},  // ends it where it stands
        {u"Read"_s, 'A', 1, FaultKind::Wrong, u"E"_s, u"L"_s, u""_s},
        {u"Read"_s, 'A', 2, FaultKind::Wrong, u"F"_s, u"L"_s, u"EEROMメモリ リード失敗"_s},
    };
    // clang-format on
    for (const auto& c : cases) {
        SCOPED_TRACE((c.key + u' ' + QLatin1Char(c.letter)).toStdString());
        TestBench b;
        if (c.key == u"Program") {
            FillAFewCells(b.bench.state.images);
        } else if (c.key == u"Read") {
            b.bench.state.images.flash.fill(0x33);
        }
        b.board.SetLetterFault(c.letter, c.fault, c.occurrence);
        const auto start = b.clock.Now();
        EXPECT_EQ(Done(b.bench.toolbar.Click(c.key)), c.done);
        EXPECT_EQ(b.Wire().last(), c.last);
        EXPECT_TRUE(c.message.isEmpty() || b.person.message == c.message);
        // One time-out at the most, and none at all after a hang-up.
        EXPECT_LT(b.clock.Now() - start, std::chrono::seconds(8));
        EXPECT_EQ(c.last == u"R" ? b.bench.state.images.flash[199] : kErased, kErased);
        EXPECT_EQ(c.last == u"R" ? b.bench.state.images.flash[200] : 0x33, 0x33);
    }
}

TEST(ChipOperations, AListingThatCannotBeWrittenLeavesProgrammingModeAndIsTold) {
    const std::pair<QString, QString> cases[] = {
        // clang-format off
        {u"Program"_s, u"avrhex.txt"_s}, {u"Program"_s, u"avrvfy.txt"_s}, {u"Erase"_s, u"avreep.txt"_s},
        {u"Read"_s, u"avrhex.txt"_s}, {u"Verify"_s, u"avrvfy.txt"_s}, {u"Clear"_s, u"avreep.txt"_s}};
    // clang-format on
    for (const auto& [key, name] : cases) {
        TestBench b;
        FillAFewCells(b.bench.state.images);
        QFile::remove(b.folder.filePath(name));
        ASSERT_TRUE(QDir(b.folder.path()).mkdir(name));  // nothing can be written there
        EXPECT_FALSE(b.bench.toolbar.Click(key).ended);
        EXPECT_FALSE(b.board.InProgrammingMode()) << key.toStdString();
        const QString told = u"リストファイルを書き込めないため、処理を途中で終了しました。"_s;
        EXPECT_EQ(b.person.message, told) << key.toStdString();
        EXPECT_EQ(b.person.panels[1], told);
    }
}

TEST(ToolbarSequences, EraseClearsTheChipAndTheLists) {
    TestBench b(7);
    b.chip->ProgramFlashLow(3, 0);
    b.chip->ProgramLock(0xF9);  // so that the signature is asked for five times
    const auto startUp = b.person.options;
    for (int& entry : b.person.options) {
        entry = 1 - entry;
    }
    b.bench.toolbar.Click(u"Erase");
    EXPECT_EQ(b.Wire().join(u','), u"S,V,v,T 22 00,s,s,s,s,s,P,e,L"_s);
    EXPECT_EQ(b.chip->ReadFlashLow(3), kErased);
    EXPECT_EQ(b.person.options, startUp);
    EXPECT_EQ(b.person.calls.filter(u"listing"_s), QStringList(u"eeprom listing"_s));
    b.person.options[OptionList::FSTRT] = 1 - startUp[OptionList::FSTRT];
    const auto moved = b.person.options;
    b.board.SetLetterFault('L', FaultKind::Wrong);
    b.bench.toolbar.Click(u"Erase");
    EXPECT_EQ(b.person.options, moved) << "it failed";
}

TEST(ToolbarSequences, ClearWorksWithoutAWriter) {
    TestBench b(3);
    b.FillImages(1);
    const auto startUp = std::exchange(b.person.options, {});
    b.bench.toolbar.Click(u"Clear");
    EXPECT_TRUE(b.port.Calls().isEmpty());
    EXPECT_EQ(b.FlashOfImages() + b.EepromOfImages(), QByteArray(2048 + 128, '\xFF'));
    EXPECT_EQ(b.person.options, startUp);
    EXPECT_EQ(b.person.calls.filter(u"listing"_s).join(u", "), u"flash listing, eeprom listing"_s);
    EXPECT_EQ(b.person.panels[1], u"バッファーをクリアしました。"_s);
}

}  // namespace
}  // namespace tolvex
