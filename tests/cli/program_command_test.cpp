// SPDX-License-Identifier: MIT
#include <QDir>
#include <QJsonArray>

#include "tests/cli/cli_bench.h"

namespace tolvex::testing {
namespace {

using namespace std::string_literals;
using enum FaultKind;

TEST(ProgramCommand, ErasesProgramsAndVerifies) {
    CliBench b;
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

TEST(ProgramCommand, ProvesEverythingBeforeTheChipChanges) {
    const std::tuple<Fault, const char*, const char*> cases[] = {
        {kNothing, "program /dev/zero --force", "2 fileNotReadable"},
        {kNothing, "program @sum.hex", "2 badFile"},
        {kNothing, "program @text.hex --force", "2 badFile"},
        {kNothing, "program @sum.hex --force", "2 badFile"},
        {kNothing, "program @lower.hex --force", "2 badFile"},
        {Lock(0xF9), "program @a.hex --backup @bk", "1 locked"},
        {kNothing, "program @a.hex --backup @sum.hex/x", "2 fileNotWritten"},
        {Spoil('R', Silent, 9), "program @a.hex --backup @bk", "1 writerSilent"},
        {Spoil('d', Silent, 9), "program @a.hex --backup @bk", "1 writerSilent"},
        {Spoil('d', Wrong, 200), "program @a.hex --keep-eeprom", "1 unstable"},
        {Spoil('R', Wrong, 9), "program @a.eep --only eeprom", "1 unstable"},
        {kNothing, "program @a.hex @a.eep --keep-eeprom", "2 wrongUse"},
        {kNothing, "program @a.eep", "2 wrongUse"},
        {kNothing, "program @a.hex @a.hex", "2 wrongUse"},
        {kNothing, "program @a.hex --only lock", "2 wrongUse"},
        {kNothing, "program @a.hex @a.eep --only flash", "2 wrongUse"},
    };
    for (const auto& [fault, line, outcome] : cases) {
        SCOPED_TRACE(line);
        CliBench b;
        b.File(u"sum.hex"_s, ":0100000001FF\r\n" + kHexEnd);
        b.File(u"lower.hex"_s, HexRecord(0, kCode) + ":01000600ab4e\r\n" + kHexEnd);
        b.File(u"text.hex"_s, "hello\n");
        b.Fill();
        fault(b);
        const ChipContents before = b.chip->Contents();
        EXPECT_EQ(b.Outcome(line), outcome) << b.Err().toStdString();
        EXPECT_FALSE(b.Json()["verified"_L1].toBool(true));
        EXPECT_EQ(b.Err().count(u"tolvex-cli: "_s), 1) << b.Err().toStdString();
        EXPECT_EQ(b.chip->Contents(), before);
        EXPECT_FALSE(b.port.Wire().contains(u"e"_s) || b.board.InProgrammingMode());
        EXPECT_TRUE(QDir(b.Path(u"bk"_s)).isEmpty());
    }
}

TEST(ProgramCommand, ForceIsNoProof) {
    const std::pair<QByteArray, const char*> cases[] = {
        // what stands behind a good record
        {":0100060001FF\r\n", "0"},
        {"\r\n", "0"},
        {"\r\n" + HexRecord(6, "\x07"), "1 partlyWritten"},  // behind where the reader stops
        {HexRecord(2048, "\x07"), "1 partlyWritten"},
        {HexRecord(0, "\x09"), "1 partlyWritten"},  // the same cell again
    };
    for (const auto& [text, outcome] : cases) {
        SCOPED_TRACE(text.toStdString());
        CliBench b;
        Insert("AT90S2323")(b);
        b.File(u"a.hex"_s, HexRecord(0, kCode) + text);
        EXPECT_EQ(b.Outcome("program @a.hex --force"), outcome);
        EXPECT_EQ(b.Json()["verified"_L1].toBool(), outcome == "0"s);
        EXPECT_TRUE(b.Err().contains(u"AT90S2323 (1E:91:02)"_s)) << b.Err().toStdString();
        EXPECT_EQ(b.Run("verify @a.hex --force"), outcome == "0"s ? kDone : kRefused);
    }
}

/// The image of one memory comes from a file, the other stays as it is.
TEST(ProgramCommand, KeepsTheOtherMemory) {
    for (const char* line : {"program @a.hex --keep-eeprom", "program @a.hex --only flash",
                             "program @a.eep --only eeprom"}) {
        SCOPED_TRACE(line);
        CliBench b;
        b.Fill();
        const ChipContents before = b.chip->Contents();
        // A file is read and proven once: what becomes of it later does not matter.
        b.signal = [&] { return QFile::remove(b.Words(line)[1]) ? 0 : 0; };
        EXPECT_EQ(b.Outcome(line), "0") << b.Err().toStdString();
        EXPECT_NEAR(b.Json()["plan"_L1]["seconds"_L1].toDouble(),
                    std::chrono::duration<double>(b.clock.Now()).count(), 0.01);
        const ChipContents now = b.chip->Contents();
        const bool flash = b.Words(line)[1].endsWith(u"hex"_s);
        EXPECT_EQ(flash ? now.eeprom : now.flash, flash ? before.eeprom : before.flash);
        EXPECT_TRUE(flash ? now.flash.startsWith(kCode + '\xFF')
                          : now.eeprom.startsWith(kData + '\xFF'));
    }
}

TEST(ProgramCommand, SavesABackupThatRestoresTheChip) {
    CliBench b;
    b.Fill();
    const ChipContents before = b.chip->Contents();
    EXPECT_EQ(b.Outcome("program @a.hex --backup @bk"), "0");
    const QString saved = b.Json()["backup"_L1]["code"_L1].toString();
    EXPECT_EQ(b.Run("erase --backup @bk"), kDone) << "within the same second";
    EXPECT_EQ(QDir(b.Path(u"bk"_s)).entryList({u"AT90S2313-20*.*"_s}).size(), 4);
    EXPECT_EQ(b.Run({u"program"_s, saved}), kDone);
    EXPECT_EQ(b.chip->Contents(), before);
}

TEST(ProgramCommand, AFailureOnTheWayIsARefusal) {
    // Counted over the whole run: 'e' once, 'R' in the verify only.
    const std::tuple<Fault, std::string, std::string> cases[] = {
        {Spoil('c', HangUp, 3), "1 lineLost", "0000-0001"},
        {Spoil('e', Wrong, 1), "1 commandRefused", "0000-0002"},
        {Spoil('C', Wrong, 2), "1 commandRefused", "0000"},
        {Spoil('R', Wrong, 2), "1 differs", "0000-0002"},
        {Spoil('D', Silent, 1), "1 writerSilent", "0000-0002"},
        {Spoil('d', Short), "1 writerSilent", "0000-0002"},
        {Spoil('c', Silent), "1 writerSilent", ""},
        {Spoil('c', Late), "1 writerSilent", ""},
    };
    const QByteArray code = HexRecord(0, QByteArray(200, 1)) + HexRecord(200, "\x02") + kHexEnd;
    for (const auto& [fault, outcome, written] : cases) {
        SCOPED_TRACE(outcome + ' ' + written);
        CliBench b;
        fault(b);
        b.File(u"long.hex"_s, code);
        EXPECT_EQ(b.Outcome(written.empty() ? "program @long.hex" : "program @a.hex"), outcome);
        EXPECT_FALSE(b.Json()["verified"_L1].toBool(true));
        EXPECT_EQ(b.Written(), written);
        EXPECT_LT(b.clock.Now(), std::chrono::seconds(30)) << "given up soon";
        EXPECT_FALSE(b.board.InProgrammingMode() && outcome != "1 lineLost");
    }
}

TEST(ProgramCommand, QuietKeepsCausesAndDifferences) {
    CliBench b;
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
    CliBench b;
    b.File(u"blank.hex"_s, HexRecord(0, "\xFF") + kHexEnd);
    EXPECT_EQ(b.Run("program @blank.hex"), kDone);
    b.signal = [&b] { return b.Fill(), 0; };
    EXPECT_EQ(b.Outcome("program @blank.hex"), "1 differs");
    EXPECT_GT(b.Json()["differences"_L1].toArray().size(), 1024);
}

/// A signal at each command of the run in turn.
TEST(ProgramCommand, ASignalLeavesTheBoardInOrderWhereverItComes) {
    CliBench whole;
    ASSERT_EQ(whole.Run("program @a.hex"), kDone);
    for (int at = 0; at < whole.board.CommandCount(); ++at) {
        SCOPED_TRACE(at);
        CliBench b;
        b.signal = [&b, at] { return b.board.CommandCount() >= at ? 15 : 0; };
        EXPECT_EQ(b.Outcome("program @a.hex"), "143 interrupted");
        EXPECT_FALSE(b.board.InProgrammingMode() || b.port.IsOpen());
        EXPECT_LE(b.board.CommandCount(), at + 2) << "at most a word's other half, and 'L'";
        EXPECT_FALSE(b.Err().contains(u"失敗"_s)) << "unwinding is no failure";
        const auto used = b.chip->Contents().flash.size() - b.chip->Contents().flash.count('\xFF');
        const char* const told[] = {"", "0000", "0000-0001", "0000-0002"};
        EXPECT_EQ(used % 2, 0) << "no word is left half-written";
        EXPECT_EQ(b.Written(), told[used / 2]);
    }
}

TEST(ProgramCommand, ASignalDuringAWaitEndsItAtOnce) {
    for (const char letter : {'S', 'T', 's', 'L', 'e', 'C'}) {
        SCOPED_TRACE(letter);
        CliBench b;
        Spoil(letter, Silent)(b);
        b.signal = [&] { return b.port.Wire().join(u' ').contains(QLatin1Char(letter)) ? 2 : 0; };
        EXPECT_EQ(b.Outcome("program @a.hex"), "130 interrupted");
        EXPECT_LT(b.clock.Now(), std::chrono::seconds(3)) << "the check's second, and no time-out";
        EXPECT_FALSE(b.board.InProgrammingMode());
        EXPECT_TRUE(
            letter != 'e' ||
            b.Err().contains(u"\nチップの消去は確認できていません。\nFlash: 書き込みなし\n"_s));
    }
}

}  // namespace
}  // namespace tolvex::testing
