// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <QJsonArray>

#include "tests/cli/cli_bench.h"

namespace tolvex::testing {
namespace {

const QByteArray kCode = HexRecord(0, "\x01\x02\x03\x04");

TEST(DetectCommand, ShowsWriterAndChip) {
    CliBench bench;
    EXPECT_EQ(bench.Run({u"detect"_s, u"--quiet"_s}), kDone);
    EXPECT_EQ(bench.Out().toStdString(),
              "ライタ: AVR ISP\nファームウエア: 3.9\nハードウエア: 1.0\n"
              "シグネチャ: 1E:91:01 (AT90S2313)\nデバイス: AT90S2313 (一致)\n");
    EXPECT_EQ(bench.Err(), QString());
    // A first reading that is no chip's is asked for again, after the chip's second to settle.
    bench.board.SetLetterFault('s', FaultKind::Wrong, 2);
    EXPECT_EQ(bench.Run({u"detect"_s}), kDone);
}

/// Every chip is known by its own name, and by no other's.
TEST(DetectCommand, NamesThePartInTheSocket) {
    for (int chip = 0; chip < 10; ++chip) {
        CliBench bench(chip);
        EXPECT_EQ(bench.RunJson({u"detect"_s}), kDone) << chip;
        EXPECT_EQ(bench.Json()["part"_L1].toString(),
                  chip == 1 ? u"AT90S1200"_s : bench.Json()["device"_L1].toString());
        SimulatedChip other(*FindChipModel(QString::number((chip + 2) % 10)));
        bench.board.SetChip(&other);
        EXPECT_EQ(bench.RunJson({u"detect"_s}), kRefused);
        EXPECT_EQ(bench.ErrorCode(), "wrongChip");
        EXPECT_EQ(bench.Json()["chip"_L1].toString(), u"mismatch"_s);
    }
}

TEST(DetectCommand, TellsOfAFirmwareThatDoesNotKnowTheChip) {
    for (const int chip : {4, 7, 9}) {
        CliBench bench(chip);
        bench.board = SimulatedWriter(bench.chip.get(), u"3.5"_s);
        EXPECT_EQ(bench.Run({u"detect"_s, u"--quiet"_s}), kDone);
        EXPECT_EQ(bench.Err().contains(u"ファームウエア 3.5"_s), chip != 9);
    }
}

/// What every command that needs the chip says to a chip or a line that isn't right.
TEST(ChipCommands, RefuseWhatIsWrong) {
    struct Fault {
        const char* what;
        std::function<void(CliBench&)> prepare;
        int status;
        QList<const char*> codes;  ///< detect, verify, read, read of one memory, erase
    };
    static SimulatedChip same(*FindChipModel(u"AT90S2323"));
    static SimulatedChip small(*FindChipModel(u"AT90S1200"));
    const auto all = [](const char* code) { return QList<const char*>(5, code); };
    const auto fault = [](char letter, FaultKind kind, int occurrence = 0) {
        return [=](CliBench& b) { b.board.SetLetterFault(letter, kind, occurrence); };
    };
    const Fault faults[] = {
        {"another size", [](CliBench& b) { b.board.SetChip(&small); }, kRefused, all("wrongChip")},
        {"same size", [](CliBench& b) { b.board.SetChip(&same); }, kRefused, all("wrongChip")},
        {"empty socket", [](CliBench& b) { b.board.SetChip(nullptr); }, kRefused,
         all("emptySocket")},
        {"locked chip",
         [](CliBench& b) { b.chip->ProgramLock(0xF9); },
         kRefused,
         {"locked", "locked", "locked", "locked", ""}},
        {"silent writer", fault('S', FaultKind::Silent), kRefused, all("writerSilent")},
        {"refusing writer", fault('T', FaultKind::Wrong), kRefused, all("commandRefused")},
        {"no signature", fault('s', FaultKind::Silent), kRefused, all("writerSilent")},
        {"hang-up", fault('s', FaultKind::HangUp), kRefused, all("lineLost")},
        {"refused on the way",
         fault('P', FaultKind::Wrong, 2),
         kRefused,
         {"", "commandRefused", "commandRefused", "commandRefused", "commandRefused"}},
        {"port in use", [](CliBench& b) { b.port.RefuseOpen(); }, kNoPort, all("portBusy")},
        {"port forbidden",
         [](CliBench& b) {
             b.port.RefuseOpen();
             b.facts.permitted = false;
         },
         kNoPort, all("portForbidden")},
        {"port missing",
         [](CliBench& b) {
             b.port.RefuseOpen();
             b.facts.exists = false;
         },
         kNoPort, all("portMissing")},
        {"no port", [](CliBench& b) { b.settings.values.remove(u"ComNox"_s); }, kWrongUse,
         all("noPort")},
    };
    for (const Fault& f : faults) {
        SCOPED_TRACE(f.what);
        for (qsizetype command = 0; command < 5; ++command) {
            SCOPED_TRACE(command);
            CliBench b;
            b.Fill();
            const QString code = b.File(u"a.hex"_s, kCode + kHexEnd);
            const QString read = b.Path(u"read.hex"_s);
            const QStringList commands[] = {{u"detect"_s},
                                            {u"verify"_s, code},
                                            {u"read"_s, read},
                                            {u"read"_s, read, u"--only"_s, u"flash"_s},
                                            {u"erase"_s}};
            f.prepare(b);
            const ChipContents before = b.chip->Contents();
            const std::string wanted = f.codes[command];
            EXPECT_EQ(b.RunJson(commands[command]), wanted.empty() ? int{kDone} : f.status);
            EXPECT_EQ(b.ErrorCode(), wanted) << b.Err().toStdString();
            EXPECT_EQ(b.Err().contains(u"tolvex-cli: "_s), !wanted.empty());
            EXPECT_FALSE(QFile::exists(read));
            EXPECT_FALSE(b.port.IsOpen());
            if (!b.port.Wire().contains(u"e"_s)) {
                EXPECT_EQ(b.chip->Contents(), before);
            }
        }
    }
}

TEST(VerifyCommand, ListsTheDifferences) {
    for (const bool only : {false, true}) {
        CliBench bench;
        const QString code = bench.File(u"a.hex"_s, kCode + kHexEnd);
        const QString data = bench.File(u"other.eep"_s, HexRecord(3, "\x77") + kHexEnd);
        const QStringList verify =
            only ? QStringList{u"verify"_s, code, u"--only"_s, u"flash"_s, u"--quiet"_s}
                 : QStringList{u"verify"_s, code, data, u"--quiet"_s};
        ChipContents contents = bench.chip->Contents();
        contents.flash.replace(0, 4, "\x01\x02\x03\x05");
        contents.eeprom[3] = '\x77';
        bench.chip->SetContents(contents);
        EXPECT_EQ(bench.Run(verify), kRefused);
        EXPECT_EQ(bench.Out().toStdString(), "Flash  0001: ファイル 0403, チップ 0503\n");
        EXPECT_EQ(bench.RunJson(verify), kRefused);
        EXPECT_EQ(bench.ErrorCode(), "differs");
        EXPECT_FALSE(bench.Json()["verified"_L1].toBool(true));
        EXPECT_EQ(bench.Json()["differences"_L1].toArray(),
                  QJsonArray{(QJsonObject{{u"memory"_s, u"flash"_s},
                                          {u"address"_s, 1},
                                          {u"expected"_s, 0x0403},
                                          {u"chip"_s, 0x0503}})});
        contents.flash[3] = '\x04';
        bench.chip->SetContents(contents);
        EXPECT_EQ(bench.Run(verify), kDone);
        EXPECT_EQ(bench.Out() + bench.Err(), QString());
        if (!only) {
            contents.eeprom[4] = '\x01';
            bench.chip->SetContents(contents);
            EXPECT_EQ(bench.Run(verify), kRefused);
            EXPECT_EQ(bench.Out(), u"EEPROM 0004: ファイル FF, チップ 01\n"_s);
        }
    }
}

TEST(ReadCommand, WritesFilesThatVerifyAndReplacesNone) {
    CliBench bench;
    bench.Fill();
    const QString code = bench.Path(u"all.hex"_s);
    const QString data = bench.Path(u"all.eep"_s);
    bench.File(u"all.eep"_s, "precious");  // never named, and not to be touched
    EXPECT_EQ(bench.RunJson({u"read"_s, code}), kWrongUse);
    EXPECT_EQ(bench.ErrorCode(), "fileExists");
    EXPECT_TRUE(bench.port.Wire().isEmpty());
    EXPECT_EQ(CliBench::Contents(data), "precious");
    EXPECT_EQ(bench.Run({u"read"_s, code, u"--overwrite"_s}), kDone) << bench.Err().toStdString();
    EXPECT_TRUE(bench.Out().endsWith(u"保存しました: %1, %2\n"_s.arg(code, data)));
    EXPECT_EQ(bench.Run({u"check"_s, code, data}), kDone);
    EXPECT_EQ(bench.Run({u"verify"_s, code}), kDone);
    EXPECT_EQ(bench.RunJson({u"read"_s, bench.Path(u"no/all.hex"_s)}), kWrongUse);
    EXPECT_EQ(bench.ErrorCode(), "fileNotWritten");
    EXPECT_EQ(bench.RunJson({u"read"_s, code, code, u"--overwrite"_s}), kWrongUse);
    EXPECT_EQ(bench.RunJson({u"read"_s, u"-"_s}), kWrongUse) << "an output for two memories";
    const QByteArray text = CliBench::Contents(data);
    EXPECT_EQ(bench.Run({u"read"_s, u"-"_s, u"--only"_s, u"eeprom"_s}), kDone);
    EXPECT_EQ(bench.Out(), QString::fromUtf8(text)) << "and nothing else";
    bench.board.SetFaultFrom(bench.board.CommandCount() + 1100, FaultKind::Silent);
    EXPECT_EQ(bench.Run({u"read"_s, code, u"--overwrite"_s}), kRefused);
    EXPECT_EQ(CliBench::Contents(data), text) << "half a read replaces nothing";
}

TEST(EraseCommand, UnlocksAChipAndSaysSo) {
    CliBench bench;
    bench.Fill();
    bench.chip->ProgramLock(0xF9);
    EXPECT_EQ(bench.Run({u"erase"_s}), kDone);
    EXPECT_TRUE(
        bench.Err().contains(u"チップはロックされています。消去してロックを解除します。\n"_s));
    EXPECT_TRUE(bench.Out().endsWith(u"Lock bit & Flash & EEPROM メモリクリアー完了。\n"_s));
    EXPECT_EQ(bench.chip->Contents(), SimulatedChip(bench.chip->Model()).Contents());
}

}  // namespace
}  // namespace tolvex::testing
