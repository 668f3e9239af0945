// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <QDir>
#include <QJsonArray>

#include "tests/cli/cli_bench.h"

namespace tolvex::testing {
namespace {

using namespace std::string_literals;

const QByteArray kCode = "\x01\x02\x03\x04\x05\x06";
const QByteArray kData = "\x41\x42";

class ProgramCommandTest : public ::testing::Test {
  protected:
    static QString Code(const CliBench& b) {
        return b.File(u"a.hex"_s, HexRecord(0, kCode) + kHexEnd);
    }
    static QString Data(const CliBench& b) {
        return b.File(u"a.eep"_s, HexRecord(0, kData) + kHexEnd);
    }
    QString Code() const { return Code(bench); }
    QString Data() const { return Data(bench); }

    CliBench bench;
};

TEST_F(ProgramCommandTest, ErasesProgramsAndVerifies) {
    bench.Fill();
    const auto stored = bench.settings.values;
    const QString code = Code();
    const QString data = Data();  // beside the code file, taken by itself
    EXPECT_EQ(bench.Run({u"program"_s, code}), kDone) << bench.Err().toStdString();
    EXPECT_TRUE(bench.Out().startsWith(u"EEPROM のファイル: %1\nｺﾏﾝﾄﾞ送信"_s.arg(data)));
    EXPECT_TRUE(bench.Out().contains(
        u"\n消去して書き込みます: Flash 3 word, EEPROM 2 byte, 全体で約 1.8 秒\n"_s))
        << bench.Out().toStdString();
    EXPECT_TRUE(bench.Out().endsWith(
        u"ベリファイ　FLASH : OK / EEPROM : OK\nプログラム終了しました。\n"_s));
    EXPECT_EQ(bench.Err().count(u"Flash Program Memory Programming !"_s), 1) << "a line a phase";
    const ChipContents contents = bench.chip->Contents();
    EXPECT_EQ(contents.flash, kCode + QByteArray(2048 - 6, '\xFF'));
    EXPECT_EQ(contents.eeprom, kData + QByteArray(128 - 2, '\xFF'));
    EXPECT_FALSE(bench.port.IsOpen());
    EXPECT_EQ(bench.settings.values, stored) << "the tool never writes the settings";
    EXPECT_EQ(QDir(bench.Path({})).entryList(QDir::Files).size(), 2) << "no listings";
}

TEST_F(ProgramCommandTest, PlansTheTimeOfTheWholeRun) {
    const QString code =
        bench.File(u"long.hex"_s,
                   HexRecord(0, QByteArray(200, 1)) + HexRecord(200, QByteArray(200, 2)) + kHexEnd);
    bench.File(u"long.eep"_s, HexRecord(9, kData) + kHexEnd);
    for (const QStringList& options : {QStringList(), QStringList{u"--keep-eeprom"_s}}) {
        CliBench b;
        EXPECT_EQ(b.RunJson(QStringList{u"program"_s, code} + options), kDone);
        const std::chrono::duration<double> taken = b.clock.Now();
        EXPECT_NEAR(b.Json()["plan"_L1]["seconds"_L1].toDouble(), taken.count(), 0.01);
        EXPECT_EQ(b.Json()["plan"_L1]["flashWords"_L1].toInt(), 200);
        EXPECT_EQ(b.Json()["plan"_L1]["eepromBytes"_L1].toInt(), options.isEmpty() ? 2 : 0);
    }
    EXPECT_EQ(bench.RunJson({u"erase"_s}), kDone);
    const std::chrono::duration<double> taken = bench.clock.Now();
    EXPECT_NEAR(bench.Json()["plan"_L1]["seconds"_L1].toDouble(), taken.count(), 0.01);
    EXPECT_LT(taken.count(), 0.3) << "one look at the right chip is enough";
}

TEST_F(ProgramCommandTest, ProvesEverythingBeforeTheChipChanges) {
    struct Case {
        const char* what;
        std::function<void(CliBench&)> prepare;
        QString options;  ///< behind "program", @ = the folder
        int status;
        const char* code;
    };
    const auto nothing = [](CliBench&) {};
    const auto lock = [](CliBench& b) { b.chip->ProgramLock(0xF9); };
    const auto fault = [](char letter, FaultKind kind, int occurrence) {
        return [=](CliBench& b) { b.board.SetLetterFault(letter, kind, occurrence); };
    };
    static SimulatedChip same(*FindChipModel(u"AT90S2343"));
    // clang-format off
    const Case cases[] = {
        {"same size", [](CliBench& b) { b.board.SetChip(&same); }, u"@a.hex"_s, 1, "wrongChip"},
        {"empty socket", [](CliBench& b) { b.board.SetChip(nullptr); }, u"@a.hex --force"_s, 1, "emptySocket"},
        {"port in use", [](CliBench& b) { b.port.RefuseOpen(); }, u"@a.hex"_s, 3, "portBusy"},
        {"missing", nothing, u"@no.hex --force"_s, 2, "fileNotReadable"},
        {"a folder", nothing, u"@"_s, 2, "fileNotReadable"},
        {"bad sum", nothing, u"@sum.hex"_s, 2, "badFile"},
        {"bad data", nothing, u"@a.hex @sum.hex"_s, 2, "badFile"},
        {"no data", nothing, u"@text.hex --force"_s, 2, "badFile"},
        {"lower case", nothing, u"@lower.hex --force"_s, 2, "badFile"},
        {"too large", nothing, u"@huge.hex --force"_s, 2, "fileNotReadable"},
        {"locked, to save", lock, u"@a.hex --backup @bk"_s, 1, "locked"},
        {"locked, to keep", lock, u"@a.hex --keep-eeprom"_s, 1, "locked"},
        {"no folder", nothing, u"@a.hex --backup @sum.hex/x"_s, 2, "fileNotWritten"},
        {"a read that breaks off", fault('R', FaultKind::Silent, 9), u"@a.hex --backup @bk"_s, 1, "writerSilent"},
        {"half a read", fault('d', FaultKind::Silent, 9), u"@a.hex --backup @bk"_s, 1, "writerSilent"},
        {"two readings", fault('d', FaultKind::Wrong, 200), u"@a.hex --keep-eeprom"_s, 1, "unstable"},
        {"two of the Flash", fault('R', FaultKind::Wrong, 9), u"@a.eep --only eeprom"_s, 1, "unstable"},
        {"kept and given", nothing, u"@a.hex @a.eep --keep-eeprom"_s, 2, "wrongUse"},
        {"data as code", nothing, u"@a.eep"_s, 2, "wrongUse"},
        {"the same twice", nothing, u"@a.hex @a.hex"_s, 2, "wrongUse"},
        {"only what", nothing, u"@a.hex --only lock"_s, 2, "wrongUse"},
        {"only two", nothing, u"@a.hex @a.eep --only flash"_s, 2, "wrongUse"},
    };
    // clang-format on
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        CliBench b;
        b.Fill();
        Code(b);
        Data(b);
        b.File(u"sum.hex"_s, ":0100000001FF\r\n" + kHexEnd);
        b.File(u"lower.hex"_s, HexRecord(0, kCode) + ":01000600ab4e\r\n" + kHexEnd);
        b.File(u"text.hex"_s, "hello\n");
        b.File(u"huge.hex"_s, c.code == "fileNotReadable"s ? QByteArray((16 << 20) + 1, ':') : "");
        c.prepare(b);
        const ChipContents before = b.chip->Contents();
        const QString options =
            u"program "_s + QString(c.options).replace(u"@"_s, b.Path({}) + u'/');
        EXPECT_EQ(b.RunJson(options.split(u' ')), c.status);
        EXPECT_EQ(b.ErrorCode(), c.code) << b.Err().toStdString();
        EXPECT_FALSE(b.Json()["verified"_L1].toBool(true));
        EXPECT_EQ(b.Err().count(u"tolvex-cli: "_s), 1) << b.Err().toStdString();
        EXPECT_EQ(b.chip->Contents(), before);
        EXPECT_FALSE(b.port.Wire().contains(u"e"_s));
        EXPECT_FALSE(b.board.InProgrammingMode());
        EXPECT_TRUE(QDir(b.Path(u"bk"_s)).isEmpty());
    }
}

/// A file is read and proven once: what becomes of it later does not matter.
TEST_F(ProgramCommandTest, UsesWhatItHasProven) {
    const QString code = Code();
    bench.signal = [&] {
        QFile::remove(code);
        return 0;
    };
    EXPECT_EQ(bench.Run({u"program"_s, code}), kDone);
    EXPECT_TRUE(bench.chip->Contents().flash.startsWith(kCode + '\xFF'));
}

TEST_F(ProgramCommandTest, ForceIsNoProof) {
    struct Case {
        const char* what;
        QByteArray text;
        bool verified;
    };
    const QByteArray record = HexRecord(0, kCode);
    const Case cases[] = {
        {"no end", record, true},
        {"a sum", record + ":0100060001FF\r\n", true},
        {"rest without data", record + "\r\n", true},
        {"data behind the reader's stop", record + "\r\n" + HexRecord(6, "\x07"), false},
        {"data outside", record + HexRecord(2048, "\x07"), false},
        {"data twice", record + HexRecord(0, "\x09"), false},
    };
    SimulatedChip other(*FindChipModel(u"AT90S2323"));
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        CliBench b;
        b.board.SetChip(&other);
        const QString code = b.File(u"a.hex"_s, c.text);
        EXPECT_EQ(b.RunJson({u"program"_s, code, u"--force"_s}), c.verified ? kDone : kRefused);
        EXPECT_EQ(b.Json()["verified"_L1].toBool(), c.verified);
        EXPECT_EQ(b.ErrorCode(), c.verified ? "" : "partlyWritten");
        EXPECT_TRUE(b.Err().contains(u"AT90S2323 (1E:91:02)"_s)) << b.Err().toStdString();
        EXPECT_TRUE(other.Contents().flash.mid(1).startsWith(kCode.mid(1)));
        EXPECT_EQ(b.Run({u"verify"_s, code, u"--force"_s}), c.verified ? kDone : kRefused);
    }
}

/// The image of one memory comes from a file, the other stays as it is.
TEST_F(ProgramCommandTest, KeepsTheOtherMemory) {
    const QString code = Code();
    const QString data = Data();
    for (const QStringList& options :
         {QStringList{code, u"--keep-eeprom"_s}, QStringList{code, u"--only"_s, u"flash"_s},
          QStringList{data, u"--only"_s, u"eeprom"_s}}) {
        SCOPED_TRACE(options.join(u' ').toStdString());
        CliBench b;
        b.Fill();
        const ChipContents before = b.chip->Contents();
        EXPECT_EQ(b.Run(QStringList{u"program"_s} + options), kDone) << b.Err().toStdString();
        const bool flash = options[0] == code;
        EXPECT_EQ(flash ? b.chip->Contents().eeprom : b.chip->Contents().flash,
                  flash ? before.eeprom : before.flash);
        EXPECT_TRUE(flash ? b.chip->Contents().flash.startsWith(kCode + '\xFF')
                          : b.chip->Contents().eeprom.startsWith(kData + '\xFF'));
        EXPECT_EQ(b.Run(QStringList{u"verify"_s} + options.first(1) +
                        QStringList{u"--only"_s, flash ? u"flash"_s : u"eeprom"_s}),
                  kDone);
    }
}

TEST_F(ProgramCommandTest, SavesABackupThatRestoresTheChip) {
    bench.Fill();
    const ChipContents before = bench.chip->Contents();
    const QStringList backup{u"--backup"_s, bench.Path(u"bk"_s)};
    EXPECT_EQ(bench.RunJson(QStringList{u"program"_s, Code()} + backup), kDone);
    const QString saved = bench.Json()["backup"_L1]["code"_L1].toString();
    EXPECT_NE(bench.chip->Contents().flash, before.flash);
    EXPECT_EQ(bench.Run(QStringList{u"erase"_s} + backup), kDone) << "within the same second";
    EXPECT_EQ(QDir(bench.Path(u"bk"_s)).entryList({u"AT90S2313-20*.*"_s}).size(), 4);
    EXPECT_EQ(bench.Run({u"program"_s, saved}), kDone);
    EXPECT_EQ(bench.chip->Contents(), before);
}

TEST_F(ProgramCommandTest, AFailureOnTheWayIsARefusal) {
    struct Case {
        const char* what;
        char letter;
        int occurrence;
        FaultKind kind;
        const char* code;
        QString written;  ///< Flash words known to be in the chip
    };
    // Counted over the whole run: 'e' once, 'R' in the verify only.
    const Case cases[] = {
        {"hang-up in the Flash", 'c', 3, FaultKind::HangUp, "lineLost", u"0000-0001"_s},
        {"erase refused", 'e', 1, FaultKind::Wrong, "commandRefused", u"0000-0002"_s},
        {"word refused", 'C', 2, FaultKind::Wrong, "commandRefused", u"0000"_s},
        {"wrong byte read", 'R', 2, FaultKind::Wrong, "differs", u"0000-0002"_s},
        {"silence in the EEPROM", 'D', 1, FaultKind::Silent, "writerSilent", u"0000-0002"_s},
        {"silent writer", 'S', 1, FaultKind::Silent, "writerSilent", {}},
        {"silent at the end", 'd', 0, FaultKind::Short, "writerSilent", u"0000-0002"_s},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        CliBench b;
        b.board.SetLetterFault(c.letter, c.kind, c.occurrence);
        const QString code = Code(b);
        Data(b);
        EXPECT_EQ(b.RunJson({u"program"_s, code}), kRefused);
        EXPECT_EQ(b.ErrorCode(), c.code);
        EXPECT_FALSE(b.Json()["verified"_L1].toBool(true));
        QStringList words;
        for (const QJsonValue& range : b.Json()["written"_L1]["flashWords"_L1].toArray()) {
            words << range.toString();
        }
        EXPECT_EQ(words.join(u',').toStdString(), c.written.toStdString());
        EXPECT_FALSE(b.board.InProgrammingMode() && c.kind != FaultKind::HangUp);
        EXPECT_EQ(b.Run({u"program"_s, code, u"--quiet"_s}), c.occurrence == 0 ? kRefused : kDone);
    }
}

/// With --quiet the cause is told and nothing else.
TEST_F(ProgramCommandTest, QuietKeepsCausesAndDifferences) {
    const QString code = Code();
    bench.board.SetLetterFault('C', FaultKind::Wrong, 2);
    EXPECT_EQ(bench.Run({u"program"_s, code, u"--quiet"_s}), kRefused);
    EXPECT_EQ(bench.Out(), QString());
    EXPECT_TRUE(
        bench.Err().startsWith(u"ｺﾐﾆｭｹｰｼｮﾝ失敗 : Hi byte Write Data Memory C\n"
                               "Flashメモリ ライト失敗\n"_s))
        << bench.Err().toStdString();
    EXPECT_TRUE(bench.Err().contains(u"\nこ"_s) || bench.Err().contains(u"不明です。"_s));
    bench.board.SetLetterFault('R', FaultKind::Wrong, 5);
    EXPECT_EQ(bench.Run({u"program"_s, code, u"--quiet"_s}), kRefused);
    EXPECT_TRUE(bench.Out().startsWith(u"Flash  0001: ファイル 0403, チップ "_s))
        << bench.Out().toStdString();
    EXPECT_EQ(bench.Run({u"program"_s, code, u"--quiet"_s}), kDone);
    EXPECT_EQ(bench.Out() + bench.Err(), QString());
}

/// An erase that the writer acknowledges and the chip ignores.
TEST_F(ProgramCommandTest, NothingToWriteIsNoReasonNotToLook) {
    const QString blank = bench.File(u"blank.hex"_s, HexRecord(0, "\xFF") + kHexEnd);
    EXPECT_EQ(bench.Run({u"program"_s, blank}), kDone);
    bench.signal = [this] {
        bench.Fill();
        return 0;
    };
    EXPECT_EQ(bench.RunJson({u"program"_s, blank}), kRefused);
    EXPECT_EQ(bench.ErrorCode(), "differs");
    EXPECT_GT(bench.Json()["differences"_L1].toArray().size(), 1024);
}

TEST_F(ProgramCommandTest, AWriterThatIsLateOrSilentIsGivenUpSoonAndLeft) {
    for (const FaultKind kind : {FaultKind::Silent, FaultKind::Late}) {
        CliBench b;
        b.board.SetLetterFault('c', kind);
        const QString code = b.File(u"long.hex"_s, HexRecord(0, QByteArray(250, 1)) + kHexEnd);
        EXPECT_EQ(b.Run({u"program"_s, code}), kRefused);
        EXPECT_LT(b.clock.Now(), std::chrono::seconds(30));
        EXPECT_FALSE(b.board.InProgrammingMode());
    }
    bench.board.SetLetterFault('P', FaultKind::Silent);
    EXPECT_EQ(bench.Run({u"program"_s, Code()}), kRefused);
    EXPECT_FALSE(bench.board.InProgrammingMode()) << "entered from the moment that it is asked";
}

/// A signal at each command of the run in turn.
TEST_F(ProgramCommandTest, ASignalLeavesTheBoardInOrderWhereverItComes) {
    const QString code = Code();
    Data();
    ASSERT_EQ(bench.Run({u"program"_s, code}), kDone) << bench.Err().toStdString();
    const int commands = bench.board.CommandCount();
    for (int at = 0; at < commands; ++at) {
        SCOPED_TRACE(at);
        CliBench b;
        b.signal = [&b, at] { return b.board.CommandCount() >= at ? 15 : 0; };
        EXPECT_EQ(b.RunJson({u"program"_s, code}), 143);
        EXPECT_EQ(b.ErrorCode(), "interrupted");
        EXPECT_FALSE(b.board.InProgrammingMode());
        EXPECT_FALSE(b.port.IsOpen());
        EXPECT_LE(b.board.CommandCount(), at + 2) << "at most a word's other half, and 'L'";
        EXPECT_FALSE(b.Err().contains(u"失敗"_s)) << "unwinding is no failure";
        const auto used = b.chip->Contents().flash.size() - b.chip->Contents().flash.count('\xFF');
        const QJsonArray told = b.Json()["written"_L1]["flashWords"_L1].toArray();
        const QString expected = used == 0   ? QString()
                                 : used == 2 ? u"0000"_s
                                             : u"0000-%1"_s.arg(HexWord4(int(used) / 2 - 1));
        EXPECT_EQ(used % 2, 0) << "no word is left half-written";
        EXPECT_EQ(told.at(0).toString(), expected);
    }
}

TEST_F(ProgramCommandTest, ASignalDuringAWaitEndsItAtOnce) {
    bench.board.SetLetterFault('e', FaultKind::Silent);
    bench.signal = [this] { return bench.port.Wire().contains(u"e"_s) ? 2 : 0; };
    EXPECT_EQ(bench.Run({u"program"_s, Code()}), 130);
    EXPECT_LT(bench.clock.Now(), std::chrono::seconds(1));
    EXPECT_FALSE(bench.board.InProgrammingMode());
    EXPECT_TRUE(bench.Err().endsWith(
        u"tolvex-cli: 中断しました。\nチップの消去は確認できていません。\nFlash: 書き込みなし\n"
        "EEPROM: 書き込みなし\n応答のない書き込みがあり、このほかの内容は不明です。\n"_s))
        << bench.Err().toStdString();
}

}  // namespace
}  // namespace tolvex::testing
