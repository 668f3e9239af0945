// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <QDir>
#include <QJsonArray>

#include "tests/cli/cli_bench.h"

namespace tolvex::testing {
namespace {

const QByteArray kCode = "\x01\x02\x03\x04\x05\x06";
const QByteArray kData = "\x41\x42";

class ProgramCommandTest : public ::testing::Test {
  protected:
    QString Code() { return bench.File(u"a.hex"_s, HexRecord(0, kCode) + kHexEnd); }
    QString Data() { return bench.File(u"a.eep"_s, HexRecord(0, kData) + kHexEnd); }
    /// What the chip held before.
    void Fill() {
        ChipContents contents = bench.chip->Contents();
        contents.flash.fill('\x55');
        contents.eeprom.fill('\x66');
        bench.chip->SetContents(contents);
    }
    void Lock() { bench.chip->ProgramLock(0xF9); }

    CliBench bench;
};

TEST_F(ProgramCommandTest, ErasesProgramsAndVerifies) {
    Fill();
    const auto stored = bench.settings.values;
    const QString code = Code();
    Data();  // beside the code file, taken by itself
    EXPECT_EQ(bench.Run({u"program"_s, code}), kDone) << bench.Err().toStdString();
    EXPECT_TRUE(
        bench.Out().contains(u"消去して書き込みます: Flash 3 word, EEPROM 2 byte, 約 1.7 秒\n"_s))
        << bench.Out().toStdString();
    EXPECT_TRUE(bench.Out().endsWith(
        u"ベリファイ　FLASH : OK / EEPROM : OK\nプログラム終了しました。\n"_s));
    EXPECT_TRUE(bench.Err().contains(u"Flash Program Memory Programming ! 50%\n"_s));
    const ChipContents contents = bench.chip->Contents();
    EXPECT_EQ(contents.flash, kCode + QByteArray(2048 - 6, '\xFF'));
    EXPECT_EQ(contents.eeprom, kData + QByteArray(128 - 2, '\xFF'));
    EXPECT_FALSE(bench.port.IsOpen());
    EXPECT_EQ(bench.settings.values, stored) << "the tool never writes the settings";
}

TEST_F(ProgramCommandTest, PlansTheTimeOnTheWire) {
    const QString code =
        bench.File(u"long.hex"_s,
                   HexRecord(0, QByteArray(200, 1)) + HexRecord(200, QByteArray(200, 2)) + kHexEnd);
    EXPECT_EQ(bench.RunJson({u"program"_s, code}), kDone);
    const double planned = bench.Json()["plan"_L1]["seconds"_L1].toDouble();
    // What has run besides: detection and check before the plan was told.
    CliBench again;
    const QStringList detect{u"detect"_s};
    EXPECT_EQ(again.Run(detect), kDone);
    const auto proof = again.clock.Now();
    EXPECT_EQ(again.Run({u"program"_s, code}), kDone);
    const std::chrono::duration<double> taken = again.clock.Now() - proof - proof;
    EXPECT_NEAR(taken.count(), planned, 0.01);
}

TEST_F(ProgramCommandTest, ProvesEverythingBeforeTheChipChanges) {
    struct Case {
        const char* what;
        std::function<void()> prepare;
        QStringList options;
        int status;
        QString code;
    };
    CliBench& b = bench;
    const auto nothing = [] {};
    const QString file = Code();
    const QString badSum = b.File(u"sum.hex"_s, ":0100000001FF\r\n" + kHexEnd);
    const QString blocked = b.File(u"blocked"_s, {});
    SimulatedChip small(*FindChipModel(u"AT90S1200"));
    const Case cases[] = {
        {"wrong chip", [&] { b.board.SetChip(&small); }, {file}, kRefused, u"wrongChip"_s},
        {"empty socket", [&] { b.board.SetChip(nullptr); }, {file}, kRefused, u"noChip"_s},
        {"empty socket by force",
         [&] { b.board.SetChip(nullptr); },
         {file, u"--force"_s},
         kRefused,
         u"noChip"_s},
        {"silent writer",
         [&] { b.board.SetFaultFrom(1, FaultKind::Silent); },
         {file},
         kRefused,
         u"writerNotFound"_s},
        {"no signature",
         [&] { b.board.SetLetterFault('s', FaultKind::Silent); },
         {file},
         kRefused,
         u"noSignature"_s},
        {"port in use", [&] { b.port.RefuseOpen(); }, {file}, kNoPort, u"portNotOpened"_s},
        {"no port", [&] { b.settings.values.remove(u"ComNox"_s); }, {file}, kWrongUse, u"noPort"_s},
        {"missing file", nothing, {b.Path(u"no.hex"_s)}, kWrongUse, u"fileNotReadable"_s},
        {"missing file by force",
         nothing,
         {b.Path(u"no.hex"_s), u"--force"_s},
         kWrongUse,
         u"fileNotReadable"_s},
        {"bad code", nothing, {badSum}, kWrongUse, u"badFile"_s},
        {"bad data", nothing, {file, badSum}, kWrongUse, u"badFile"_s},
        {"locked, to keep", [&] { Lock(); }, {file, u"--keep-eeprom"_s}, kRefused, u"chipLocked"_s},
        {"locked, to save",
         [&] { Lock(); },
         {file, u"--backup"_s, b.Path(u"bk"_s)},
         kRefused,
         u"chipLocked"_s},
        {"no folder to save in",
         nothing,
         {file, u"--backup"_s, blocked + u"/x"_s},
         kWrongUse,
         u"backupFailed"_s},
        {"a read that breaks off",
         [&] { b.board.SetLetterFault('R', FaultKind::Silent, 9); },
         {file, u"--backup"_s, b.Path(u"bk"_s)},
         kRefused,
         u"readFailed"_s},
        {"data kept and given",
         nothing,
         {file, Data(), u"--keep-eeprom"_s},
         kWrongUse,
         u"wrongUse"_s},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        b.board.SetChip(b.chip.get());
        b.board.ClearFaults();
        b.chip->Erase();
        b.port.RefuseOpen(false);
        b.port.ForgetTrace();
        b.settings.values[u"ComNox"_s] = u"1"_s;
        Fill();
        c.prepare();
        const ChipContents before = b.chip->Contents();
        EXPECT_EQ(b.RunJson(QStringList{u"program"_s} + c.options), c.status);
        EXPECT_EQ(b.ErrorCode().toStdString(), c.code.toStdString());
        EXPECT_EQ(b.Json()["exitStatus"_L1].toInt(), c.status);
        EXPECT_EQ(b.Err().count(u"tolvex-cli: "_s), 1) << b.Err().toStdString();
        EXPECT_EQ(b.chip->Contents(), before);
        EXPECT_FALSE(b.port.Wire().contains(u"e"_s));
        EXPECT_FALSE(b.board.InProgrammingMode());
    }
}

TEST_F(ProgramCommandTest, ALockedChipIsErasedAndProgrammed) {
    Fill();
    Lock();
    EXPECT_EQ(bench.Run({u"program"_s, Code()}), kDone);
    EXPECT_TRUE(bench.Err().contains(u"チップはロックされています。"_s));
    EXPECT_TRUE(bench.chip->Contents().flash.startsWith(kCode));
}

TEST_F(ProgramCommandTest, ForceTakesWhatTheWindowTakes) {
    SimulatedChip small(*FindChipModel(u"AT90S1200"));
    bench.board.SetChip(&small);
    const QString badSum = bench.File(u"sum.hex"_s, ":0200000012340F\r\nrest\r\n");
    EXPECT_EQ(bench.Run({u"program"_s, badSum, u"--force"_s}), kDone) << bench.Err().toStdString();
    EXPECT_TRUE(bench.Out().startsWith(u"ｺﾏﾝﾄﾞ送信"_s));
    EXPECT_TRUE(bench.Out().contains(u"HEX ファイルのオープンエラー\n"_s)) << "at its second line";
    EXPECT_TRUE(small.Contents().flash.startsWith("\x12\x34\xFF"));
}

TEST_F(ProgramCommandTest, KeepsTheEeprom) {
    Fill();
    const ChipContents before = bench.chip->Contents();
    const QString code = Code();
    Data();
    EXPECT_EQ(bench.Run({u"program"_s, code, u"--keep-eeprom"_s}), kDone);
    EXPECT_EQ(bench.chip->Contents().eeprom, before.eeprom);
    EXPECT_TRUE(bench.chip->Contents().flash.startsWith(kCode + '\xFF'));
}

TEST_F(ProgramCommandTest, SavesABackupThatRestoresTheChip) {
    Fill();
    const ChipContents before = bench.chip->Contents();
    EXPECT_EQ(bench.RunJson({u"program"_s, Code(), u"--backup"_s, bench.Path(u"bk"_s)}), kDone);
    const QJsonObject backup = bench.Json()["backup"_L1].toObject();
    EXPECT_EQ(QDir(bench.Path(u"bk"_s)).entryList({u"AT90S2313-20*.*"_s}).size(), 2);
    EXPECT_NE(bench.chip->Contents().flash, before.flash);
    EXPECT_EQ(bench.Run({u"program"_s, backup["code"_L1].toString()}), kDone);
    EXPECT_EQ(bench.chip->Contents(), before);
}

TEST_F(ProgramCommandTest, AFailureOnTheWayIsARefusal) {
    struct Case {
        const char* what;
        char letter;
        int occurrence;
        FaultKind kind;
        QString written;  ///< Flash words known to be in the chip
    };
    // Counted over the whole run: 'e' once, 'R' in the verify only.
    const Case cases[] = {
        {"hang-up at the erase", 'e', 1, FaultKind::HangUp, {}},
        {"hang-up in the Flash", 'c', 3, FaultKind::HangUp, u"0000-0001"_s},
        {"hang-up in the verify", 'R', 2, FaultKind::HangUp, u"0000-0002"_s},
        {"erase refused", 'e', 1, FaultKind::Wrong, u"0000-0002"_s},
        {"word refused", 'C', 2, FaultKind::Wrong, u"0000,0002"_s},
        {"wrong byte read", 'R', 2, FaultKind::Wrong, u"0000-0002"_s},
        {"silence in the EEPROM", 'D', 1, FaultKind::Silent, u"0000-0002"_s},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        CliBench b;
        b.board.SetLetterFault(c.letter, c.kind, c.occurrence);
        const QString code = b.File(u"a.hex"_s, HexRecord(0, kCode) + kHexEnd);
        b.File(u"a.eep"_s, HexRecord(0, kData) + kHexEnd);
        EXPECT_EQ(b.RunJson({u"program"_s, code}), kRefused);
        EXPECT_EQ(b.ErrorCode(), u"notVerified"_s);
        EXPECT_FALSE(b.Json()["verified"_L1].toBool(true));
        QStringList words;
        for (const QJsonValue& range : b.Json()["written"_L1]["flashWords"_L1].toArray()) {
            words << range.toString();
        }
        EXPECT_EQ(words.join(u',').toStdString(), c.written.toStdString());
        EXPECT_FALSE(b.port.IsOpen());
    }
}

TEST_F(ProgramCommandTest, ASilentWriterIsGivenUpSoon) {
    bench.board.SetLetterFault('c', FaultKind::Silent);
    const QString code = bench.File(u"long.hex"_s, HexRecord(0, QByteArray(250, 1)) + kHexEnd);
    EXPECT_EQ(bench.Run({u"program"_s, code}), kRefused);
    EXPECT_LT(bench.clock.Now(), std::chrono::seconds(30));
}

/// Ctrl-C at each command of the run in turn.
TEST_F(ProgramCommandTest, CtrlCLeavesTheBoardInOrderWhereverItComes) {
    const QString code = Code();
    Data();
    ASSERT_EQ(bench.Run({u"program"_s, code}), kDone) << bench.Err().toStdString();
    const int commands = bench.board.CommandCount();
    for (int at = 0; at < commands; ++at) {
        SCOPED_TRACE(at);
        CliBench b;
        b.stopAsked = [&b, at] { return b.board.CommandCount() >= at; };
        EXPECT_EQ(b.RunJson({u"program"_s, code}), kInterrupted);
        EXPECT_EQ(b.ErrorCode(), u"interrupted"_s);
        EXPECT_FALSE(b.board.InProgrammingMode());
        EXPECT_FALSE(b.port.IsOpen());
        EXPECT_LE(b.board.CommandCount(), at + 2) << "at most a word's other half, and 'L'";
        const auto used = b.chip->Contents().flash.size() - b.chip->Contents().flash.count('\xFF');
        const QJsonArray told = b.Json()["written"_L1]["flashWords"_L1].toArray();
        const QString expected = used == 0   ? QString()
                                 : used == 2 ? u"0000"_s
                                             : u"0000-%1"_s.arg(HexWord4(int(used) / 2 - 1));
        EXPECT_EQ(used % 2, 0) << "no word is left half-written";
        EXPECT_EQ(told.at(0).toString(), expected);
    }
}

TEST_F(ProgramCommandTest, CtrlCSaysWhatWasWritten) {
    const QString code = Code();
    bench.stopAsked = [this] { return bench.port.Wire().contains(u"C 04"_s); };
    EXPECT_EQ(bench.Run({u"program"_s, code}), kInterrupted);
    EXPECT_TRUE(
        bench.Err().endsWith(u"tolvex-cli: 中断しました。\nチップは消去済みです。\n"
                             "Flash: 2 word 書き込み済み (0000-0001)\n"
                             "EEPROM: 書き込みなし\n"_s))
        << bench.Err().toStdString();
    EXPECT_FALSE(bench.Out().contains(u"失敗"_s)) << "unwinding is no failure";
}

}  // namespace
}  // namespace tolvex::testing
