// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <QJsonArray>

#include "tests/cli/cli_bench.h"

namespace tolvex::testing {
namespace {

const QByteArray kCode = HexRecord(0, "\x01\x02\x03\x04");

void Fill(SimulatedChip& chip) {
    ChipContents contents = chip.Contents();
    for (qsizetype i = 0; i < contents.flash.size(); ++i) {
        contents.flash[i] = static_cast<char>(i * 7 + i / 256);
    }
    for (qsizetype i = 0; i < contents.eeprom.size(); ++i) {
        contents.eeprom[i] = static_cast<char>(i * 3);
    }
    chip.SetContents(contents);
}

TEST(DetectCommand, ShowsWriterAndChip) {
    CliBench bench;
    EXPECT_EQ(bench.Run({u"detect"_s, u"--quiet"_s}), kDone);
    EXPECT_EQ(bench.Out().toStdString(),
              "ライタ: AVR ISP\nファームウエア: 3.9\nハードウエア: 1.0\n"
              "シグネチャ: 1E:91:01\nデバイス: AT90S2313 (一致)\n");
    EXPECT_EQ(bench.Err(), QString());
}

/// What every command that needs the chip says to a chip or a line that isn't right.
TEST(ChipCommands, RefuseWhatIsWrong) {
    struct Fault {
        const char* what;
        std::function<void(CliBench&)> prepare;
        int status;
        QStringList codes;  ///< detect, verify, read, erase
    };
    static SimulatedChip small(*FindChipModel(u"AT90S1200"));
    const Fault faults[] = {
        {"wrong chip",
         [](CliBench& b) { b.board.SetChip(&small); },
         kRefused,
         {u"chipRefused"_s, u"notVerified"_s, u"readFailed"_s, u"wrongChip"_s}},
        {"empty socket",
         [](CliBench& b) { b.board.SetChip(nullptr); },
         kRefused,
         {u"chipRefused"_s, u"notVerified"_s, u"readFailed"_s, u"noChip"_s}},
        {"locked chip",
         [](CliBench& b) { b.chip->ProgramLock(0xF9); },
         kRefused,
         {u"chipRefused"_s, u"notVerified"_s, u"readFailed"_s, {}}},
        {"silent writer",
         [](CliBench& b) { b.board.SetFaultFrom(1, FaultKind::Silent); },
         kRefused,
         {u"writerNotFound"_s, u"writerNotFound"_s, u"writerNotFound"_s, u"writerNotFound"_s}},
        {"hang-up at once",
         [](CliBench& b) { b.board.SetFault(1, FaultKind::HangUp); },
         kRefused,
         {u"writerNotFound"_s, u"writerNotFound"_s, u"writerNotFound"_s, u"writerNotFound"_s}},
        {"hang-up at the chip",
         [](CliBench& b) { b.board.SetLetterFault('s', FaultKind::HangUp); },
         kRefused,
         {u"noSignature"_s, u"notVerified"_s, u"readFailed"_s, u"noSignature"_s}},
        {"hang-up in the middle",
         [](CliBench& b) { b.board.SetLetterFault('L', FaultKind::HangUp, 2); },
         kRefused,
         {{}, u"notVerified"_s, u"readFailed"_s, u"notErased"_s}},
        {"port in use",
         [](CliBench& b) { b.port.RefuseOpen(); },
         kNoPort,
         {u"portNotOpened"_s, u"portNotOpened"_s, u"portNotOpened"_s, u"portNotOpened"_s}},
        {"no port",
         [](CliBench& b) { b.settings.values.remove(u"ComNox"_s); },
         kWrongUse,
         {u"noPort"_s, u"noPort"_s, u"noPort"_s, u"noPort"_s}},
    };
    for (const Fault& fault : faults) {
        SCOPED_TRACE(fault.what);
        for (qsizetype command = 0; command < 4; ++command) {
            SCOPED_TRACE(command);
            CliBench b;
            Fill(*b.chip);
            const QString code = b.File(u"a.hex"_s, kCode + kHexEnd);
            const QString read = b.Path(u"read.hex"_s);
            const QStringList commands[] = {
                {u"detect"_s}, {u"verify"_s, code}, {u"read"_s, read}, {u"erase"_s}};
            fault.prepare(b);
            const ChipContents before = b.chip->Contents();
            const QString wanted = fault.codes[command];
            EXPECT_EQ(b.RunJson(commands[command]), wanted.isEmpty() ? int{kDone} : fault.status);
            EXPECT_EQ(b.ErrorCode().toStdString(), wanted.toStdString());
            EXPECT_EQ(b.Err().contains(u"tolvex-cli: "_s), !wanted.isEmpty());
            EXPECT_FALSE(QFile::exists(read));
            EXPECT_FALSE(b.port.IsOpen());
            if (!b.port.Wire().contains(u"e"_s)) {
                EXPECT_EQ(b.chip->Contents(), before);
            }
        }
    }
}

TEST(VerifyCommand, ListsTheDifferences) {
    CliBench bench;
    const QString code = bench.File(u"a.hex"_s, kCode + kHexEnd);
    const QString data = bench.File(u"other.eep"_s, HexRecord(3, "\x77") + kHexEnd);
    ChipContents contents = bench.chip->Contents();
    contents.flash.replace(0, 4, "\x01\x02\x03\x05");
    contents.eeprom[3] = '\x77';
    bench.chip->SetContents(contents);
    EXPECT_EQ(bench.Run({u"verify"_s, code, data}), kRefused);
    EXPECT_TRUE(bench.Out().contains(
        u"Flash  Address(word) = 0001  Original Data = 0403   NG Data = 0503\n"_s))
        << bench.Out().toStdString();
    EXPECT_TRUE(bench.Out().contains(u"ベリファイ　FLASH : NG / EEPROM : OK\n"_s));

    EXPECT_EQ(bench.RunJson({u"verify"_s, code, data}), kRefused);
    EXPECT_EQ(bench.ErrorCode(), u"differs"_s);
    const QJsonArray differences = bench.Json()["differences"_L1].toArray();
    ASSERT_EQ(differences.size(), 1);
    EXPECT_EQ(differences[0].toObject(), (QJsonObject{{u"memory"_s, u"flash"_s},
                                                      {u"address"_s, 1},
                                                      {u"expected"_s, 0x0403},
                                                      {u"chip"_s, 0x0503}}));

    contents.flash[3] = '\x04';
    bench.chip->SetContents(contents);
    EXPECT_EQ(bench.Run({u"verify"_s, code, data}), kDone);
}

TEST(ReadCommand, WritesFilesThatVerify) {
    CliBench bench;
    Fill(*bench.chip);
    EXPECT_EQ(bench.Run({u"read"_s, bench.Path(u"all.hex"_s)}), kDone) << bench.Err().toStdString();
    EXPECT_TRUE(bench.Out().endsWith(
        u"保存しました: %1, %2\n"_s.arg(bench.Path(u"all.hex"_s), bench.Path(u"all.eep"_s))));
    EXPECT_EQ(bench.Run({u"check"_s, bench.Path(u"all.hex"_s), bench.Path(u"all.eep"_s)}), kDone);
    EXPECT_EQ(bench.Run({u"verify"_s, bench.Path(u"all.hex"_s)}), kDone);
    EXPECT_EQ(bench.RunJson({u"read"_s, bench.Path(u"no/all.hex"_s)}), kWrongUse);
    EXPECT_EQ(bench.ErrorCode(), u"fileNotWritten"_s);
}

TEST(EraseCommand, ErasesAfterABackup) {
    CliBench bench;
    Fill(*bench.chip);
    const ChipContents before = bench.chip->Contents();
    EXPECT_EQ(bench.RunJson({u"erase"_s, u"--backup"_s, bench.Path(u"bk"_s)}), kDone);
    EXPECT_TRUE(bench.Json()["erased"_L1].toBool());
    EXPECT_EQ(bench.chip->Contents(), SimulatedChip(bench.chip->Model()).Contents());
    const QString saved = bench.Json()["backup"_L1]["code"_L1].toString();
    EXPECT_EQ(bench.Run({u"program"_s, saved}), kDone);
    EXPECT_EQ(bench.chip->Contents(), before);
}

TEST(EraseCommand, UnlocksAChipAndSaysSo) {
    CliBench bench;
    Fill(*bench.chip);
    bench.chip->ProgramLock(0xF9);
    EXPECT_EQ(bench.Run({u"erase"_s}), kDone);
    EXPECT_TRUE(
        bench.Err().contains(u"チップはロックされています。消去してロックを解除します。\n"_s));
    EXPECT_TRUE(bench.Out().endsWith(u"Lock bit & Flash & EEPROM メモリクリアー完了。\n"_s));
    EXPECT_FALSE(bench.chip->WriteProtected());
}

}  // namespace
}  // namespace tolvex::testing
