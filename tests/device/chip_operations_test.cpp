// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <QFile>

#include "device/catalogue.h"
#include "device/used_extent.h"
#include "tests/support/test_bench.h"

namespace tolvex {
namespace {

using namespace Qt::StringLiterals;
using testing::DetectionWire;
using testing::Recorder;
using testing::TestBench;

const QString kVerified = u"ベリファイ　FLASH : OK / EEPROM : OK"_s;

QByteArray ReportOf(const TestBench& b) {
    QFile report(b.folders.listings.first() + u"avrvfy.txt"_s);
    return report.open(QIODevice::ReadOnly) ? report.readAll() : QByteArray();
}

/// The wire of programming `words` words and every used EEPROM byte, from the device check on.
QStringList ProgramWire(const TestBench& b, int words) {
    const MemoryImages& images = b.bench.state.images;
    QStringList wire{u"P"_s, u"s"_s, u"L"_s, u"P"_s, u"A 00 00"_s};
    for (int cell = 0; cell < 2 * words; cell += 2) {
        wire << u"c "_s + HexByte(images.flash[static_cast<std::size_t>(cell) + 1])
             << u"C "_s + HexByte(images.flash[static_cast<std::size_t>(cell)]);
    }
    wire << u"L"_s << u"P"_s;
    for (int address = 0; address < b.bench.state.device.eepromBytes; ++address) {
        const int data = images.eeprom[static_cast<std::size_t>(address)];
        if (data != kErased) {
            wire << u"A %1 %2"_s.arg(HexByte(address / 256), HexByte(address % 256))
                 << u"D "_s + HexByte(data);
        }
    }
    return wire << u"L"_s;
}

QStringList VerifyWire(int words, int bytes) {
    QStringList wire{u"P"_s, u"A 00 00"_s};
    wire << QStringList(words, u"R"_s) << u"L"_s << u"P"_s;
    for (int address = 0; address < bytes; ++address) {
        wire << u"A %1 %2"_s.arg(HexByte(address / 256), HexByte(address % 256)) << u"d"_s;
    }
    return wire << u"L"_s;
}

/// Fails at the first difference instead of printing thousands of commands.
void ExpectWire(const QStringList& wire, const QStringList& expected, const std::string& what) {
    for (int i = 0; i < std::min(wire.size(), expected.size()); ++i) {
        ASSERT_EQ(wire[i], expected[i]) << what << ", command " << i;
    }
    EXPECT_EQ(wire.size(), expected.size()) << what;
}

/// Between two progress texts the bar only moves on.
void ExpectProgressNeverRunsBackwards(const Recorder& person) {
    double maximum = -1;
    double value = -1;
    for (const Recorder::Progress& step : person.progress) {
        if (step.maximum == maximum && step.value != 0) {
            EXPECT_GE(step.value, value);
        }
        maximum = step.maximum;
        value = step.value;
        EXPECT_EQ(step.visible, value != maximum);
    }
}

TEST(ProgramOperation, EveryChipEndsUpHoldingTheImages) {
    for (int index = 0; index < static_cast<int>(Catalogue().size()); ++index) {
        TestBench b(index);
        const std::string name = b.bench.state.device.name.toStdString();
        b.FillImages(static_cast<unsigned>(index + 1));
        b.bench.toolbar.Click(u"Program");

        const int words =
            LastUsedWord(b.bench.state.images.flash, b.bench.state.device.flashWords) + 1;
        const int bytes =
            LastUsedByte(b.bench.state.images.eeprom, b.bench.state.device.eepromBytes) + 1;
        ExpectWire(b.Wire(),
                   DetectionWire(b.bench.state.device.deviceCode) +
                       QStringList{u"s"_s, u"P"_s, u"e"_s, u"L"_s} + ProgramWire(b, words) +
                       VerifyWire(words, bytes),
                   name);
        EXPECT_EQ(b.chip->Contents().flash, b.FlashOfImages()) << name;
        EXPECT_EQ(b.chip->Contents().eeprom, b.EepromOfImages()) << name;
        EXPECT_EQ(b.person.message, kVerified) << name;
        EXPECT_EQ(b.person.panels[1], u"プログラム終了しました。"_s) << name;
        ExpectProgressNeverRunsBackwards(b.person);
    }
}

TEST(ProgramOperation, TellsEveryStepInOrder) {
    TestBench b;
    b.bench.state.images.flash[20] = 0x12;
    b.bench.state.images.eeprom[3] = 0x34;
    b.bench.toolbar.Click(u"Program");
    const QString closed = u"close message"_s;
    const QStringList expected = {
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
    EXPECT_EQ(b.person.Seen(), expected);
    EXPECT_FALSE(b.person.calls.contains(u"verify report"_s));
}

TEST(ProgramOperation, WritesAndVerifiesAsFarAsTheImagesReach) {
    const struct {
        const char* what;
        QList<int> flashCells, eepromCells;
        int wordsWritten, wordsVerified, bytesVerified;
    } cases[] = {
        {"the first word alone takes the second along", {0}, {}, 2, 1, 1},
        {"low byte of word 9", {19}, {}, 10, 10, 1},
        {"EEPROM only", {}, {5}, 0, 1, 6},
        {"first EEPROM byte alone", {}, {0}, 0, 1, 1},
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
        b.Forget();
        EXPECT_TRUE(b.bench.program.ProgramChip().Verified());
        ExpectWire(b.Wire(),
                   ProgramWire(b, c.wordsWritten) + VerifyWire(c.wordsVerified, c.bytesVerified),
                   c.what);
        EXPECT_EQ(b.person.message, kVerified) << c.what;
    }
}

TEST(ProgramOperation, BlankImagesSendNothing) {
    TestBench b;
    b.bench.toolbar.Click(u"Program");
    EXPECT_EQ(b.Wire(), DetectionWire(0x11) + (QStringList{u"s"_s, u"P"_s, u"e"_s, u"L"_s}));
    EXPECT_EQ(b.person.message, u"Lock bit & プログラム/EEPROMデータ メモリクリアー完了。"_s);
    EXPECT_EQ(b.person.panels[1], u"プログラム終了しました。"_s);
}

void ExpectInOrder(const QStringList& calls, const QStringList& expected, const char* what) {
    qsizetype at = 0;
    for (const QString& call : expected) {
        at = calls.indexOf(call, at);
        ASSERT_GE(at, 0) << what << ": " << call.toStdString();
        ++at;
    }
}

TEST(ProgramOperation, FaultsAreToldAndTheRestStillRuns) {
    const QString failed = u"status 1: ｺﾐﾆｭｹｰｼｮﾝ失敗 : "_s;
    const QString flashFailed = u"message OK: Flashメモリ ライト失敗"_s;
    const QString eepromFailed = u"message OK: EEROMメモリ ライト失敗"_s;
    const QString verifyFailed = u"message OK: ベリファイ　通信エラー"_s;
    const QString eepromBegins = u"progress: EEPROM Data Memory Programming !"_s;
    const QString verifyBegins = u"progress: Flash Program Memory Verifying !"_s;
    const struct {
        const char* what;
        char letter;
        int occurrence;
        FaultKind fault;
        QStringList seen;  ///< must appear in this order among what the person sees
    } cases[] = {
        // clang-format off
        {"erase refused", 'e', 1, FaultKind::Wrong,
         {failed + u"Chip Erase e"_s, u"status 1: Flash & EEPROM メモリクリアー失敗"_s,
          u"message OK: Flash & EEPROM メモリクリアー失敗"_s, u"progress: Flash Program Memory Programming !"_s}},
        {"device check silent", 's', 2, FaultKind::Silent,
         {failed + u"Read Signature bytes s"_s, u"status 1: プログラミングを中止しました。"_s}},
        {"low byte wrong", 'c', 3, FaultKind::Wrong,
         {failed + u"Low byte Write Data Memory c"_s, u"status 1: Flashメモリ ライト失敗"_s, flashFailed,
          eepromBegins, verifyBegins}},
        {"high byte silent", 'C', 5, FaultKind::Silent,
         {failed + u"Hi byte Write Program Memory C"_s, flashFailed, eepromBegins}},
        {"EEPROM byte wrong", 'D', 1, FaultKind::Wrong,
         {failed + u"Write Data Memory D"_s, u"status 1: EEPROMメモリ ライト失敗"_s, eepromFailed, verifyBegins}},
        {"verify: word short", 'R', 2, FaultKind::Short,
         {failed + u"Read Program Memory R"_s, u"status 1: Flash メモリ ベリファイ失敗"_s,
          u"message OK: Flash メモリ ベリファイ失敗"_s, u"progress: EEPROM Data Memory Verifying !"_s}},
        {"verify: byte silent", 'd', 1, FaultKind::Silent, {failed + u"Read Data Memory d"_s, verifyFailed}},
        {"hang-up in the Flash", 'c', 4, FaultKind::HangUp,
         {failed + u"Low byte Write Program Memory c"_s, flashFailed, eepromFailed, verifyFailed}},
        // clang-format on
    };
    for (const auto& c : cases) {
        TestBench b;
        b.FillImages(7);
        b.board.SetLetterFault(c.letter, c.fault, c.occurrence);
        const auto start = b.clock.Now();
        b.bench.toolbar.Click(u"Program");
        ExpectInOrder(b.person.Seen(),
                      c.seen + QStringList(u"status 1: プログラム終了しました。"_s), c.what);
        for (const QString& text : {flashFailed, eepromFailed}) {  // neither blames the other
            EXPECT_EQ(b.person.Seen().contains(text), c.seen.contains(text)) << c.what;
        }
        // One time-out at the most, and none at all after a hang-up.
        EXPECT_LT(b.clock.Now() - start, std::chrono::seconds(8)) << c.what;
    }
}

TEST(VerifyOperation, ReportsEveryDifferingCell) {
    TestBench b(8);
    b.FillImages(5);
    ASSERT_TRUE(b.bench.detection.WriterCheck());
    b.bench.program.ProgramChip();
    b.Forget();
    b.bench.state.images.flash[0x1000] = 0x94;  // word 0x0800
    b.bench.state.images.flash[0x1001] = 0x0C;
    b.bench.state.images.eeprom[0x1FF] = 0x0A;
    ChipContents contents = b.chip->Contents();
    contents.flash[0x1000] = '\x0D';  // in the chip the low byte comes first
    contents.flash[0x1001] = '\x94';
    contents.eeprom[0x1FF] = '\x0B';
    b.chip->SetContents(contents);

    b.bench.toolbar.Click(u"Verify");
    const QByteArray expected =
        "Flash Program memory address verify\r\n\r\n"
        "Flash  Address(word) = 0800  Original Data = 940C   NG Data = 940D\r\n"
        "\r\nEEPROM data memory address verify\r\n\r\n"
        "EEPROM Address(byte) = 01FF  Original Data = 0A   NG Data = 0B\r\n";
    EXPECT_EQ(ReportOf(b), expected);
    EXPECT_EQ(b.person.verifyReport, QString::fromLatin1(expected).remove(u'\r'));
    ExpectWire(b.Wire(),
               DetectionWire(0x21) + QStringList{u"P"_s, u"s"_s, u"L"_s} + VerifyWire(4096, 512),
               "whole chip");
    ExpectInOrder(b.person.calls,
                  {u"verify report"_s, u"status 1: ベリファイ　FLASH : NG / EEPROM : NG"_s,
                   u"message OK: ベリファイ　FLASH : NG / EEPROM : NG"_s,
                   u"status 1: ベリファイ終了しました。"_s},
                  "report before summary");
}

TEST(VerifyOperation, SummaryNamesTheMemoryThatDiffers) {
    const struct {
        std::uint8_t flash, eeprom;
        QString text;
    } cases[] = {{kErased, kErased, kVerified},
                 {0, kErased, u"ベリファイ　FLASH : NG / EEPROM : OK"_s},
                 {kErased, 0, u"ベリファイ　FLASH : OK / EEPROM : NG"_s}};
    for (const auto& c : cases) {
        TestBench b;
        b.bench.state.images.flash[1023] = c.flash;
        b.bench.state.images.eeprom[63] = c.eeprom;
        b.bench.toolbar.Click(u"Verify");
        EXPECT_EQ(b.person.message, c.text);
        EXPECT_EQ(b.person.calls.contains(u"verify report"_s), c.text != kVerified);
        EXPECT_TRUE(ReportOf(b).startsWith("Flash Program memory address verify\r\n\r\n"));
    }
}

TEST(VerifyOperation, FailuresEndItAtTheirPlace) {
    TestBench flash;  // the last word is compared with the one before
    flash.board.SetLetterFault('R', FaultKind::Silent, 512);
    flash.bench.toolbar.Click(u"Verify");
    ExpectInOrder(flash.person.Seen(),
                  {u"message OK: Flash メモリ ベリファイ失敗"_s, u"message OK: "_s + kVerified},
                  "a Flash failure still ends with a summary");

    TestBench eeprom;
    eeprom.board.SetLetterFault('d', FaultKind::Silent, 64);
    eeprom.bench.toolbar.Click(u"Verify");
    EXPECT_EQ(eeprom.person.message, u"ベリファイ　通信エラー"_s);
    EXPECT_FALSE(eeprom.person.calls.contains(u"verify report"_s));

    TestBench empty;
    empty.board.SetChip(nullptr);
    empty.bench.toolbar.Click(u"Verify");
    EXPECT_FALSE(empty.Wire().contains(u"R"_s));
    ExpectInOrder(
        empty.person.Seen(),
        {u"message OK: デバイスが、ソケットにセットされていません。"_s,
         u"status 1: ベリファイを中止しました。"_s, u"status 1: ベリファイ終了しました。"_s},
        "empty socket");
}

TEST(ReadOperation, FillsTheImagesAndLeavesTheRest) {
    TestBench source(2);
    source.FillImages(9);
    TestBench b(2);
    ChipContents contents = b.chip->Contents();
    contents.flash = source.FlashOfImages();
    contents.eeprom = source.EepromOfImages();
    b.chip->SetContents(contents);
    b.bench.state.images.flash[2048] = 0x77;
    b.bench.state.images.eeprom[128] = 0x66;
    b.bench.toolbar.Click(u"Read");
    EXPECT_EQ(b.FlashOfImages(), source.FlashOfImages());
    EXPECT_EQ(b.EepromOfImages(), source.EepromOfImages());
    EXPECT_EQ(b.bench.state.images.flash[2048], 0x77);
    EXPECT_EQ(b.bench.state.images.eeprom[128], 0x66);
    ExpectWire(b.Wire(),
               DetectionWire(0x21) + QStringList{u"P"_s, u"s"_s, u"L"_s} + VerifyWire(1024, 128),
               "a read reads what a verify reads");
    EXPECT_EQ(b.person.panels[1], u"リード終了しました。"_s);
    EXPECT_EQ(b.person.calls.filter(u"listing"_s).join(u", "), u"flash listing, eeprom listing"_s);
}

TEST(ReadOperation, FailuresEndTheirPhase) {
    const struct {
        const char* what;
        char letter;
        int occurrence;
        FaultKind fault;
        QStringList seen;
        std::string lastOnWire;
    } cases[] = {
        // clang-format off
        {"a word without reply ends it where it stands", 'R', 101, FaultKind::Silent,
         {u"progress: Flash Program Memory Reading !"_s,
          u"status 1: ｺﾐﾆｭｹｰｼｮﾝ失敗 : Read Program Memory R"_s, u"status 1: リード終了しました。"_s}, "R"},
        {"Flash address refused", 'A', 1, FaultKind::Wrong,
         {u"status 1: Flashメモリ リード失敗"_s, u"message OK: Flashメモリ リード失敗"_s,
          u"progress: EEPROM Data Memory Reading !"_s, u"close message"_s}, "L"},
        {"EEPROM address refused", 'A', 2, FaultKind::Wrong,
         {u"status 1: EEPROMメモリ リード失敗"_s, u"message OK: EEROMメモリ リード失敗"_s}, "L"},
        {"device check silent", 's', 1, FaultKind::Silent, {u"status 1: リードを中止しました。"_s}, "L"},
        // clang-format on
    };
    for (const auto& c : cases) {
        TestBench b;
        b.board.SetLetterFault(c.letter, c.fault, c.occurrence);
        b.bench.state.images.flash.fill(0x33);
        b.bench.toolbar.Click(u"Read");
        ExpectInOrder(b.person.Seen(), c.seen, c.what);
        EXPECT_EQ(b.Wire().last().toStdString(), c.lastOnWire) << c.what;
        if (c.letter == 'R') {
            EXPECT_EQ(b.bench.state.images.flash[199], kErased);
            EXPECT_EQ(b.bench.state.images.flash[200], 0x33);
        }
    }
}

}  // namespace
}  // namespace tolvex
