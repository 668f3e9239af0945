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

/// The texts in this order, others in between.
void ExpectInOrder(const QStringList& calls, const QStringList& expected, const char* what) {
    qsizetype at = 0;
    for (const QString& call : expected) {
        at = calls.indexOf(call, at);
        ASSERT_GE(at, 0) << what << ": " << call.toStdString();
        ++at;
    }
}

/// Three words, "940C 1234 FFEE" in a listing, and two EEPROM bytes.
void FillAFewCells(MemoryImages& images) {
    images.flash[0] = 0x94;
    images.flash[1] = 0x0C;
    images.flash[2] = 0x12;
    images.flash[3] = 0x34;
    images.flash[5] = 0xEE;
    images.eeprom[0] = 0x5A;
    images.eeprom[2] = 0xA5;
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

TEST(ProgramOperation, EveryChipEndsUpHoldingTheImages) {
    for (int index = 0; index < static_cast<int>(Catalogue().size()); ++index) {
        TestBench b(index);
        b.FillImages(static_cast<unsigned>(index + 1));
        b.bench.toolbar.Click(u"Program");
        EXPECT_EQ(b.chip->Contents().flash, b.FlashOfImages()) << index;
        EXPECT_EQ(b.chip->Contents().eeprom, b.EepromOfImages()) << index;
        EXPECT_EQ(b.person.message, kVerified) << index;
        double maximum = -1, value = -1;
        for (const testing::Recorder::Progress& step : b.person.progress) {
            // Within a phase the bar only moves on.
            EXPECT_TRUE(step.maximum != maximum || step.value == 0 || step.value >= value);
            maximum = step.maximum;
            value = step.value;
        }
        EXPECT_EQ(value, maximum) << index;
    }
}

TEST(ProgramOperation, WritesAndVerifiesAsFarAsTheImagesReach) {
    const struct {
        const char* what;
        QList<int> flashCells, eepromCells;
        int wordsWritten, wordsVerified, bytesVerified;
    } cases[] = {
        {"the first word alone takes the second along", {0}, {}, 2, 1, 1},
        {"EEPROM only", {}, {5}, 0, 1, 6},
        {"last cells", {1023}, {63}, 512, 512, 64},
        {"beyond the chip does not count", {0, 1024}, {63, 64}, 2, 1, 64},
    };
    for (const auto& c : cases) {
        TestBench b;
        for (const int cell : c.flashCells) {
            b.bench.state.images.flash[static_cast<std::size_t>(cell)] = 0;
        }
        for (const int cell : c.eepromCells) {
            b.bench.state.images.eeprom[static_cast<std::size_t>(cell)] = 0;
        }
        ASSERT_TRUE(b.bench.detection.WriterCheck());
        EXPECT_TRUE(b.bench.program.ProgramChip().Verified()) << c.what;
        EXPECT_EQ(b.Wire().filter(u"C "_s).size(), c.wordsWritten) << c.what;
        EXPECT_EQ(b.Wire().count(u"R"_s), c.wordsVerified) << c.what;
        EXPECT_EQ(b.Wire().count(u"d"_s), c.bytesVerified) << c.what;
    }
    TestBench blank;
    EXPECT_TRUE(blank.bench.toolbar.Click(u"Program").program->nothingToWrite);
    EXPECT_EQ(blank.Wire().join(u','), kDetected + u"s,P,e,L"_s);
    EXPECT_EQ(blank.person.message, u"Lock bit & プログラム/EEPROMデータ メモリクリアー完了。"_s);
}

TEST(ProgramOperation, FaultsAreToldAndNothingThatFailedCountsAsDone) {
    const QString failed = u"status 1: ｺﾐﾆｭｹｰｼｮﾝ失敗 : "_s;
    const QString flashFailed = u"message OK: Flashメモリ ライト失敗"_s;
    const QString eepromFailed = u"message OK: EEROMメモリ ライト失敗"_s;
    const struct {
        const char* what;
        char letter;
        int occurrence;
        FaultKind fault;
        bool flash, eeprom;  ///< written
        QStringList seen;
    } cases[] = {
        // clang-format off
        {"erase refused", 'e', 1, FaultKind::Wrong, true, true,
         {failed + u"Chip Erase e"_s, u"status 1: Flash & EEPROM メモリクリアー失敗"_s,
          u"message OK: Flash & EEPROM メモリクリアー失敗"_s, u"progress: Flash Program Memory Programming !"_s}},
        {"device check silent", 's', 2, FaultKind::Silent, false, false,
         {failed + u"Read Signature bytes s"_s, u"status 1: プログラミングを中止しました。"_s}},
        {"low byte wrong", 'c', 3, FaultKind::Wrong, false, true,
         {failed + u"Low byte Write Data Memory c"_s, u"status 1: Flashメモリ ライト失敗"_s, flashFailed,
          u"progress: EEPROM Data Memory Programming !"_s, u"message OK: "_s + kVerified}},
        {"EEPROM byte silent", 'D', 1, FaultKind::Silent, true, false,
         {failed + u"Write Data Memory D"_s, u"status 1: EEPROMメモリ ライト失敗"_s, eepromFailed,
          u"message OK: "_s + kVerified}},
        {"hang-up in the Flash", 'c', 2, FaultKind::HangUp, false, false,
         {failed + u"Low byte Write Program Memory c"_s, flashFailed, eepromFailed,
          u"message OK: Flash メモリ ベリファイ失敗"_s, u"message OK: ベリファイ　通信エラー"_s}},
        // clang-format on
    };
    for (const auto& c : cases) {
        TestBench b;
        FillAFewCells(b.bench.state.images);
        b.board.SetLetterFault(c.letter, c.fault, c.occurrence);
        const auto start = b.clock.Now();
        const ChainResult result = b.bench.toolbar.Click(u"Program");
        ExpectInOrder(b.person.Seen(),
                      c.seen + QStringList(u"status 1: プログラム終了しました。"_s), c.what);
        EXPECT_EQ(result.program->flashWritten, c.flash) << c.what;
        EXPECT_EQ(result.program->eepromWritten, c.eeprom) << c.what;
        EXPECT_EQ(result.program->Verified(), c.flash && c.eeprom) << c.what;
        EXPECT_EQ(result.erase->erased, c.letter != 'e') << c.what;
        // One time-out at the most, and none at all after a hang-up.
        EXPECT_LT(b.clock.Now() - start, std::chrono::seconds(8)) << c.what;
    }
}

TEST(VerifyOperation, ReportsEveryDifferingCell) {
    const struct {
        bool flash, eeprom;
        QString text;
    } cases[] = {{false, false, kVerified},
                 {true, false, u"ベリファイ　FLASH : NG / EEPROM : OK"_s},
                 {false, true, u"ベリファイ　FLASH : OK / EEPROM : NG"_s},
                 {true, true, u"ベリファイ　FLASH : NG / EEPROM : NG"_s}};
    for (const auto& c : cases) {
        TestBench b(8);
        if (c.flash) {
            b.bench.state.images.flash[0x1000] = 0x94;  // word 0x0800
            b.bench.state.images.flash[0x1001] = 0x0C;
            b.chip->ProgramFlashLow(0x800, 0x0D);
            b.chip->ProgramFlashHigh(0x800, 0x94);
        }
        if (c.eeprom) {
            b.bench.state.images.eeprom[0x1FF] = 0x0A;
        }
        EXPECT_EQ(b.bench.toolbar.Click(u"Verify").verify->Matches(), c.text == kVerified);
        const QByteArray flash =
            "Flash  Address(word) = 0800  Original Data = 940C   NG Data = 940D\r\n";
        const QByteArray eeprom =
            "EEPROM Address(byte) = 01FF  Original Data = 0A   NG Data = FF\r\n";
        const QByteArray report =
            "Flash Program memory address verify\r\n\r\n" + (c.flash ? flash : QByteArray()) +
            "\r\nEEPROM data memory address verify\r\n\r\n" + (c.eeprom ? eeprom : QByteArray());
        EXPECT_EQ(testing::Bytes(b.folder.filePath(u"avrvfy.txt"_s)), report);
        const bool shown = c.flash || c.eeprom;
        EXPECT_EQ(b.person.verifyReport,
                  shown ? QString::fromLatin1(report).remove(u'\r') : QString());
        EXPECT_EQ(b.Wire().count(u"R"_s), 4096) << "the whole chip";
        EXPECT_EQ(b.Wire().count(u"d"_s), 512);
        QStringList told = {u"status 1: "_s + c.text, u"message OK: "_s + c.text,
                            u"status 1: ベリファイ終了しました。"_s};
        ExpectInOrder(b.person.calls, shown ? QStringList(u"verify report"_s) + told : told, "");
    }
}

TEST(VerifyOperation, AFailureIsNoMatch) {
    TestBench flash;  // the last word is compared with the one before
    flash.board.SetLetterFault('R', FaultKind::Silent, 512);
    EXPECT_FALSE(flash.bench.toolbar.Click(u"Verify").verify->Matches());
    ExpectInOrder(flash.person.Seen(),
                  {u"status 1: Flash メモリ ベリファイ失敗"_s,
                   u"message OK: Flash メモリ ベリファイ失敗"_s, u"message OK: "_s + kVerified},
                  "a Flash failure still ends with a summary");

    TestBench eeprom;
    eeprom.board.SetLetterFault('d', FaultKind::Silent, 64);
    EXPECT_FALSE(eeprom.bench.toolbar.Click(u"Verify").verify->Matches());
    EXPECT_EQ(eeprom.person.message, u"ベリファイ　通信エラー"_s);
    EXPECT_FALSE(eeprom.person.calls.contains(u"verify report"_s));

    TestBench empty;
    empty.board.SetChip(nullptr);
    EXPECT_FALSE(empty.bench.toolbar.Click(u"Verify").verify->Matches());
    EXPECT_FALSE(empty.Wire().contains(u"R"_s));
    ExpectInOrder(empty.person.Seen(),
                  {u"message OK: デバイスが、ソケットにセットされていません。"_s,
                   u"status 1: ベリファイを中止しました。"_s},
                  "empty socket");
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
    EXPECT_EQ(b.Wire().last(), u"L"_s);
    EXPECT_EQ(b.person.panels[1], u"リード終了しました。"_s);
    EXPECT_EQ(b.person.calls.filter(u"listing"_s).join(u", "), u"flash listing, eeprom listing"_s);
}

TEST(ReadOperation, WhatFailedIsNotComplete) {
    const struct {
        const char* what;
        char letter;
        int occurrence;
        FaultKind fault;
        bool flash, eeprom;  ///< read
        QStringList seen;
    } cases[] = {
        // clang-format off
        {"a word without reply ends it where it stands", 'R', 101, FaultKind::Silent, false, false,
         {u"progress: Flash Program Memory Reading !"_s,
          u"status 1: ｺﾐﾆｭｹｰｼｮﾝ失敗 : Read Program Memory R"_s, u"status 1: リード終了しました。"_s}},
        {"Flash address refused", 'A', 1, FaultKind::Wrong, false, true,
         {u"status 1: Flashメモリ リード失敗"_s, u"message OK: Flashメモリ リード失敗"_s,
          u"progress: EEPROM Data Memory Reading !"_s, u"close message"_s}},
        {"EEPROM address refused", 'A', 2, FaultKind::Wrong, true, false,
         {u"status 1: EEPROMメモリ リード失敗"_s, u"message OK: EEROMメモリ リード失敗"_s}},
        {"device check silent", 's', 1, FaultKind::Silent, false, false,
         {u"status 1: リードを中止しました。"_s}},
        // clang-format on
    };
    for (const auto& c : cases) {
        TestBench b;
        b.board.SetLetterFault(c.letter, c.fault, c.occurrence);
        b.bench.state.images.flash.fill(0x33);
        const ReadResult read = *b.bench.toolbar.Click(u"Read").read;
        ExpectInOrder(b.person.Seen(), c.seen, c.what);
        EXPECT_EQ(read.flashRead, c.flash) << c.what;
        EXPECT_EQ(read.eepromRead, c.eeprom) << c.what;
        EXPECT_FALSE(read.Complete());
        EXPECT_EQ(b.Wire().last(), c.letter == 'R' ? u"R"_s : u"L"_s) << c.what;
        if (c.letter == 'R') {
            EXPECT_EQ(b.bench.state.images.flash[199], kErased);
            EXPECT_EQ(b.bench.state.images.flash[200], 0x33);
        }
    }
}

TEST(ChipOperations, AListingThatCannotBeWrittenLeavesProgrammingModeAndIsTold) {
    const std::pair<QString, QString> cases[] = {
        {u"Program"_s, u"avrhex.txt"_s}, {u"Program"_s, u"avrvfy.txt"_s},
        {u"Erase"_s, u"avreep.txt"_s},   {u"Read"_s, u"avrhex.txt"_s},
        {u"Verify"_s, u"avrvfy.txt"_s},  {u"Clear"_s, u"avreep.txt"_s}};
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

}  // namespace
}  // namespace tolvex
