// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <QDir>
#include <QJsonArray>

#include "tests/cli/cli_bench.h"

namespace tolvex::testing {
namespace {

using namespace std::string_literals;
using enum FaultKind;

const QByteArray kCode = "\x01\x02\x03\x04\x05\x06";
const QByteArray kData = "\x41\x42";

/// With a.hex, beside it a.eep, and what can be wrong with a file.
struct ProgramBench : CliBench {
    ProgramBench() {
        File(u"a.hex"_s, HexRecord(0, kCode) + kHexEnd);
        File(u"a.eep"_s, HexRecord(0, kData) + kHexEnd);
        File(u"sum.hex"_s, ":0100000001FF\r\n" + kHexEnd);
        File(u"lower.hex"_s, HexRecord(0, kCode) + ":01000600ab4e\r\n" + kHexEnd);
        File(u"text.hex"_s, "hello\n");
        File(u"blank.hex"_s, HexRecord(0, "\xFF") + kHexEnd);
        File(u"long.hex"_s, HexRecord(0, QByteArray(200, 1)) + HexRecord(200, "\x02") + kHexEnd);
    }
};

TEST(ProgramCommand, ErasesProgramsAndVerifies) {
    ProgramBench b;
    b.Fill();
    const auto stored = b.settings.values;
    const auto files = QDir(b.Path({})).entryList(QDir::Files);
    EXPECT_EQ(b.Run("program @a.hex"), kDone) << b.Err().toStdString();
    EXPECT_TRUE(
        b.Out().startsWith(u"EEPROM のファイル: %1\nｺﾏﾝﾄﾞ送信"_s.arg(b.Words("@a.eep")[0])));
    EXPECT_TRUE(b.Out().contains(
        u"\n消去して書き込みます: Flash 3 word, EEPROM 2 byte, 全体で約 1.8 秒\n"_s));
    EXPECT_TRUE(
        b.Out().endsWith(u"ベリファイ　FLASH : OK / EEPROM : OK\nプログラム終了しました。\n"_s));
    EXPECT_EQ(b.Err().count(u"Flash Program Memory Programming !"_s), 1) << "a line a phase";
    EXPECT_EQ(b.chip->Contents().flash, kCode + QByteArray(2048 - 6, '\xFF'));
    EXPECT_EQ(b.chip->Contents().eeprom, kData + QByteArray(128 - 2, '\xFF'));
    EXPECT_FALSE(b.port.IsOpen());
    EXPECT_EQ(b.settings.values, stored) << "the tool never writes the settings";
    EXPECT_EQ(QDir(b.Path({})).entryList(QDir::Files), files) << "nor any listings";
}

TEST(ProgramCommand, PlansTheTimeOfTheWholeRun) {
    for (const char* line : {"program @a.hex", "program @long.hex --keep-eeprom", "erase"}) {
        ProgramBench b;
        EXPECT_EQ(b.RunJson(line), kDone);
        const std::chrono::duration<double> taken = b.clock.Now();
        EXPECT_NEAR(b.Json()["plan"_L1]["seconds"_L1].toDouble(), taken.count(), 0.01) << line;
        EXPECT_TRUE(line != "erase"s || taken.count() < 0.3)
            << "one look at the right chip is enough";
    }
}

TEST(ProgramCommand, ProvesEverythingBeforeTheChipChanges) {
    struct Case {
        std::function<void(CliBench&)> prepare;
        const char* line;
        int status;
        const char* code;
    };
    const Case cases[] = {
        {Insert("AT90S2343"), "program @a.hex", 1, "wrongChip"},
        {Insert("none"), "program @a.hex --force", 1, "emptySocket"},
        {RefusePort, "program @a.hex", 3, "portBusy"},
        {Nothing, "program @no.hex --force", 2, "fileNotReadable"},
        {Nothing, "program @", 2, "fileNotReadable"},
        {Nothing, "program /dev/zero --force", 2, "fileNotReadable"},
        {Nothing, "program @sum.hex", 2, "badFile"},
        {Nothing, "program @a.hex @sum.hex", 2, "badFile"},
        {Nothing, "program @text.hex --force", 2, "badFile"},
        {Nothing, "program @sum.hex --force", 2, "badFile"},
        {Nothing, "program @lower.hex --force", 2, "badFile"},
        {Lock(0xF9), "program @a.hex --backup @bk", 1, "locked"},
        {Lock(0xF9), "program @a.hex --keep-eeprom", 1, "locked"},
        {Nothing, "program @a.hex --backup @sum.hex/x", 2, "fileNotWritten"},
        {Spoil('R', Silent, 9), "program @a.hex --backup @bk", 1, "writerSilent"},
        {Spoil('d', Silent, 9), "program @a.hex --backup @bk", 1, "writerSilent"},
        {Spoil('d', Wrong, 200), "program @a.hex --keep-eeprom", 1, "unstable"},
        {Spoil('R', Wrong, 9), "program @a.eep --only eeprom", 1, "unstable"},
        {Nothing, "program @a.hex @a.eep --keep-eeprom", 2, "wrongUse"},
        {Nothing, "program @a.eep", 2, "wrongUse"},
        {Nothing, "program @a.hex @a.hex", 2, "wrongUse"},
        {Nothing, "program @a.hex --only lock", 2, "wrongUse"},
        {Nothing, "program @a.hex @a.eep --only flash", 2, "wrongUse"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.line + " "s + c.code);
        ProgramBench b;
        b.Fill();
        c.prepare(b);
        const ChipContents before = b.chip->Contents();
        EXPECT_EQ(b.RunJson(c.line), c.status);
        EXPECT_EQ(b.ErrorCode(), c.code) << b.Err().toStdString();
        EXPECT_FALSE(b.Json()["verified"_L1].toBool(true));
        EXPECT_EQ(b.Err().count(u"tolvex-cli: "_s), 1) << b.Err().toStdString();
        EXPECT_EQ(b.chip->Contents(), before);
        EXPECT_FALSE(b.port.Wire().contains(u"e"_s) || b.board.InProgrammingMode());
        EXPECT_TRUE(QDir(b.Path(u"bk"_s)).isEmpty());
    }
}

/// A file is read and proven once: what becomes of it later does not matter.
TEST(ProgramCommand, UsesWhatItHasProven) {
    ProgramBench b;
    b.signal = [&b] { return QFile::remove(b.Path(u"a.hex"_s)) ? 0 : 0; };
    EXPECT_EQ(b.Run("program @a.hex"), kDone);
    EXPECT_TRUE(b.chip->Contents().flash.startsWith(kCode + '\xFF'));
}

TEST(ProgramCommand, ForceIsNoProof) {
    struct Case {
        QByteArray text;  ///< behind a good record
        bool verified;
    };
    const Case cases[] = {
        {"", true},
        {":0100060001FF\r\n", true},
        {"\r\n", true},
        {"\r\n" + HexRecord(6, "\x07"), false},  // behind the line where the reader stops
        {HexRecord(2048, "\x07"), false},
        {HexRecord(0, "\x09"), false},  // the same cell again
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.text.toStdString());
        CliBench b;
        Insert("AT90S2323")(b);
        b.File(u"a.hex"_s, HexRecord(0, kCode) + c.text);
        EXPECT_EQ(b.RunJson("program @a.hex --force"), c.verified ? kDone : kRefused);
        EXPECT_EQ(b.Json()["verified"_L1].toBool(), c.verified);
        EXPECT_EQ(b.ErrorCode(), c.verified ? "" : "partlyWritten");
        EXPECT_TRUE(b.Err().contains(u"AT90S2323 (1E:91:02)"_s)) << b.Err().toStdString();
        EXPECT_EQ(b.Run("verify @a.hex --force"), c.verified ? kDone : kRefused);
    }
}

/// The image of one memory comes from a file, the other stays as it is.
TEST(ProgramCommand, KeepsTheOtherMemory) {
    for (const char* line : {"program @a.hex --keep-eeprom", "program @a.hex --only flash",
                             "program @a.eep --only eeprom"}) {
        SCOPED_TRACE(line);
        ProgramBench b;
        b.Fill();
        const ChipContents before = b.chip->Contents();
        EXPECT_EQ(b.Run(line), kDone) << b.Err().toStdString();
        const ChipContents now = b.chip->Contents();
        const bool flash = b.Words(line)[1].endsWith(u"hex"_s);
        EXPECT_EQ(flash ? now.eeprom : now.flash, flash ? before.eeprom : before.flash);
        EXPECT_TRUE(flash ? now.flash.startsWith(kCode + '\xFF') : now.eeprom.startsWith(kData));
        EXPECT_EQ(b.Run(flash ? "verify @a.hex --only flash" : "verify @a.eep --only eeprom"),
                  kDone);
    }
}

TEST(ProgramCommand, SavesABackupThatRestoresTheChip) {
    ProgramBench b;
    b.Fill();
    const ChipContents before = b.chip->Contents();
    EXPECT_EQ(b.RunJson("program @a.hex --backup @bk"), kDone);
    const QString saved = b.Json()["backup"_L1]["code"_L1].toString();
    EXPECT_EQ(b.Run("erase --backup @bk"), kDone) << "within the same second";
    EXPECT_EQ(QDir(b.Path(u"bk"_s)).entryList({u"AT90S2313-20*.*"_s}).size(), 4);
    EXPECT_EQ(b.Run({u"program"_s, saved}), kDone);
    EXPECT_EQ(b.chip->Contents(), before);
}

TEST(ProgramCommand, AFailureOnTheWayIsARefusal) {
    struct Case {
        std::function<void(CliBench&)> spoil;
        const char* code;
        const char* written;  ///< Flash words known to be in the chip
    };
    // Counted over the whole run: 'e' once, 'R' in the verify only.
    const Case cases[] = {
        {Spoil('c', HangUp, 3), "lineLost", "0000-0001"},
        {Spoil('e', Wrong, 1), "commandRefused", "0000-0002"},
        {Spoil('C', Wrong, 2), "commandRefused", "0000"},
        {Spoil('R', Wrong, 2), "differs", "0000-0002"},
        {Spoil('D', Silent, 1), "writerSilent", "0000-0002"},
        {Spoil('S', Silent, 1), "writerSilent", ""},
        {Spoil('d', Short), "writerSilent", "0000-0002"},
        {Spoil('c', Silent), "writerSilent", ""},
        {Spoil('c', Late), "writerSilent", ""},
        {Spoil('P', Silent), "writerSilent", ""},
    };
    for (const Case& c : cases) {
        ProgramBench b;
        SCOPED_TRACE(&c - cases);
        c.spoil(b);
        const bool many = c.written == ""s;
        EXPECT_EQ(b.RunJson(many ? "program @long.hex" : "program @a.hex"), kRefused);
        EXPECT_EQ(b.ErrorCode(), c.code);
        EXPECT_FALSE(b.Json()["verified"_L1].toBool(true));
        const QJsonArray words = b.Json()["written"_L1]["flashWords"_L1].toArray();
        EXPECT_EQ(words.at(0).toString().toStdString(), c.written);
        EXPECT_LT(b.clock.Now(), std::chrono::seconds(30)) << "given up soon";
        EXPECT_FALSE(b.board.InProgrammingMode() && c.code != "lineLost"s);
    }
}

TEST(ProgramCommand, QuietKeepsCausesAndDifferences) {
    ProgramBench b;
    Spoil('C', Wrong, 2)(b);
    EXPECT_EQ(b.Run("program @a.hex --quiet"), kRefused);
    EXPECT_EQ(b.Out(), QString());
    EXPECT_EQ(b.Err().section(u'\n', 0, 2).toStdString(),
              "ｺﾐﾆｭｹｰｼｮﾝ失敗 : Hi byte Write Data Memory C\nFlashメモリ ライト失敗\n"
              "tolvex-cli: ライタがコマンドを拒否しました。書き込みを確認できませんでした。");
    Spoil('R', Wrong, 5)(b);
    EXPECT_EQ(b.Run("program @a.hex --quiet"), kRefused);
    EXPECT_TRUE(b.Out().startsWith(u"Flash  0001: ファイル 0403, チップ "_s));
    EXPECT_EQ(b.Run("program @a.hex --quiet"), kDone);
    EXPECT_EQ(b.Out() + b.Err(), QString());
}

/// An erase that the writer acknowledges and the chip ignores.
TEST(ProgramCommand, NothingToWriteIsNoReasonNotToLook) {
    ProgramBench b;
    EXPECT_EQ(b.Run("program @blank.hex"), kDone);
    b.signal = [&b] {
        b.Fill();
        return 0;
    };
    EXPECT_EQ(b.RunJson("program @blank.hex"), kRefused);
    EXPECT_EQ(b.ErrorCode(), "differs");
    EXPECT_GT(b.Json()["differences"_L1].toArray().size(), 1024);
}

/// A signal at each command of the run in turn.
TEST(ProgramCommand, ASignalLeavesTheBoardInOrderWhereverItComes) {
    ProgramBench whole;
    ASSERT_EQ(whole.Run("program @a.hex"), kDone);
    for (int at = 0; at < whole.board.CommandCount(); ++at) {
        SCOPED_TRACE(at);
        ProgramBench b;
        b.signal = [&b, at] { return b.board.CommandCount() >= at ? 15 : 0; };
        EXPECT_EQ(b.RunJson("program @a.hex"), 143);
        EXPECT_EQ(b.ErrorCode(), "interrupted");
        EXPECT_FALSE(b.board.InProgrammingMode() || b.port.IsOpen());
        EXPECT_LE(b.board.CommandCount(), at + 2) << "at most a word's other half, and 'L'";
        EXPECT_FALSE(b.Err().contains(u"失敗"_s)) << "unwinding is no failure";
        const auto used = b.chip->Contents().flash.size() - b.chip->Contents().flash.count('\xFF');
        const QStringList told{{}, u"0000"_s, u"0000-0001"_s, u"0000-0002"_s};
        EXPECT_EQ(used % 2, 0) << "no word is left half-written";
        EXPECT_EQ(b.Json()["written"_L1]["flashWords"_L1][0].toString(), told[used / 2]);
    }
}

TEST(ProgramCommand, ASignalDuringAWaitEndsItAtOnce) {
    for (const char letter : {'S', 'T', 's', 'L', 'e', 'C'}) {
        SCOPED_TRACE(letter);
        ProgramBench b;
        Spoil(letter, Silent)(b);
        b.signal = [&] { return b.port.Wire().join(u' ').contains(QLatin1Char(letter)) ? 2 : 0; };
        EXPECT_EQ(b.RunJson("program @a.hex"), 130);
        EXPECT_LT(b.clock.Now(), std::chrono::seconds(3)) << "the check's second, and no time-out";
        EXPECT_FALSE(b.board.InProgrammingMode());
        EXPECT_TRUE(
            letter != 'e' ||
            b.Err().endsWith(
                u"tolvex-cli: 中断しました。\nチップの消去は確認できていません。\nFlash: "
                u"書き込みなし\n"
                "EEPROM: 書き込みなし\n応答のない書き込みがあり、このほかの内容は不明です。\n"_s))
            << b.Err().toStdString();
    }
}

}  // namespace
}  // namespace tolvex::testing
