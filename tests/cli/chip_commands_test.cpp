// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <QJsonArray>

#include "tests/cli/cli_bench.h"

namespace tolvex::testing {
namespace {

using enum FaultKind;

TEST(DetectCommand, ShowsWriterAndChip) {
    CliBench b;
    EXPECT_EQ(b.Run("detect --quiet"), kDone);
    EXPECT_EQ(b.Out().toStdString(),
              "ライタ: AVR ISP\nファームウエア: 3.9\nハードウエア: 1.0\n"
              "シグネチャ: 1E:91:01 (AT90S2313)\nデバイス: AT90S2313 (一致)\n");
    EXPECT_EQ(b.Err(), QString());
    // A first reading that is no chip's is asked for again, after the chip's second to settle.
    Spoil('s', Wrong, 2)(b);
    EXPECT_EQ(b.Run("detect"), kDone);
}

/// Every chip is known by its own name, and by no other's.
TEST(DetectCommand, NamesThePartInTheSocket) {
    for (int chip = 0; chip < 10; ++chip) {
        CliBench b(chip);
        EXPECT_EQ(b.RunJson("detect"), kDone) << chip;
        EXPECT_EQ(b.Json()["part"_L1].toString(),
                  chip == 1 ? u"AT90S1200"_s : b.Json()["device"_L1].toString());
        Insert(QByteArray::number((chip + 2) % 10).constData())(b);
        EXPECT_EQ(b.RunJson("detect"), kRefused);
        EXPECT_EQ(b.ErrorCode(), "wrongChip");
        b.board = SimulatedWriter(b.chip.get(), u"3.5"_s);
        EXPECT_EQ(b.Run("detect --quiet"), kDone);
        EXPECT_EQ(b.Err().contains(u"ファームウエア 3.5"_s), chip == 4 || chip == 7);
    }
}

/// What every command that needs the chip says to a chip or a line that isn't right.
TEST(ChipCommands, RefuseWhatIsWrong) {
    struct Fault {
        std::function<void(CliBench&)> prepare;
        int status;
        const char* code;
        std::string fine = {};  ///< the commands that it does not concern
    };
    const auto facts = [](PortFacts port) {
        return [=](CliBench& b) {
            RefusePort(b);
            b.facts = port;
        };
    };
    const Fault faults[] = {
        {Insert("AT90S1200"), kRefused, "wrongChip"},
        {Insert("AT90S2323"), kRefused, "wrongChip"},
        {Insert("none"), kRefused, "emptySocket"},
        {Lock(0xF9), kRefused, "locked", "erase"},
        {Spoil('S', Silent), kRefused, "writerSilent"},
        {Spoil('T', Wrong), kRefused, "commandRefused"},
        {Spoil('s', Silent), kRefused, "writerSilent"},
        {Spoil('s', HangUp), kRefused, "lineLost"},
        {Spoil('P', Wrong, 2), kRefused, "commandRefused", "detect"},
        {Spoil('P', Silent, 2), kRefused, "writerSilent", "detect"},
        {RefusePort, kNoPort, "portBusy"},
        {facts({.exists = true}), kNoPort, "portForbidden"},
        {facts({}), kNoPort, "portMissing"},
        {[](CliBench& b) { b.settings.values.remove(u"ComNox"_s); }, kWrongUse, "noPort"},
    };
    for (const Fault& f : faults) {
        for (const std::string line : {"detect", "verify @a.hex", "read @read.hex",
                                       "read @read.hex --only flash", "erase"}) {
            SCOPED_TRACE(line + " " + f.code);
            CliBench b;
            b.Fill();
            b.File(u"a.hex"_s, HexRecord(0, "\x01\x02\x03\x04") + kHexEnd);
            f.prepare(b);
            const ChipContents before = b.chip->Contents();
            const bool fine = line == f.fine;
            EXPECT_EQ(b.RunJson(line.c_str()), fine ? int{kDone} : f.status);
            EXPECT_EQ(b.ErrorCode(), fine ? "" : f.code) << b.Err().toStdString();
            EXPECT_EQ(b.Err().contains(u"tolvex-cli: "_s), !fine);
            EXPECT_FALSE(QFile::exists(b.Path(u"read.hex"_s)) || b.port.IsOpen());
            EXPECT_FALSE(b.board.InProgrammingMode() && f.code != std::string("lineLost"));
            EXPECT_TRUE(b.chip->Contents() == before || b.port.Wire().contains(u"e"_s));
        }
    }
}

TEST(VerifyCommand, ListsTheDifferences) {
    for (const char* line :
         {"verify @a.hex @b.eep --quiet", "verify @a.hex --only flash --quiet"}) {
        CliBench b;
        b.File(u"a.hex"_s, HexRecord(0, "\x01\x02\x03\x04") + kHexEnd);
        b.File(u"b.eep"_s, HexRecord(3, "\x77") + kHexEnd);
        ChipContents contents = b.chip->Contents();
        contents.flash.replace(0, 4, "\x01\x02\x03\x05");
        contents.eeprom[3] = '\x77';
        b.chip->SetContents(contents);
        EXPECT_EQ(b.Run(line), kRefused);
        EXPECT_EQ(b.Out(), u"Flash  0001: ファイル 0403, チップ 0503\n"_s);
        EXPECT_EQ(b.RunJson(line), kRefused);
        EXPECT_EQ(b.ErrorCode(), "differs");
        EXPECT_FALSE(b.Json()["verified"_L1].toBool(true));
        const QJsonObject difference{{u"memory"_s, u"flash"_s},
                                     {u"address"_s, 1},
                                     {u"expected"_s, 0x0403},
                                     {u"chip"_s, 0x0503}};
        EXPECT_EQ(b.Json()["differences"_L1].toArray(), QJsonArray{difference});
        contents.flash[3] = '\x04';
        b.chip->SetContents(contents);
        EXPECT_EQ(b.Run(line), kDone);
        EXPECT_EQ(b.Out() + b.Err(), QString());
        contents.eeprom[4] = '\x01';
        b.chip->SetContents(contents);
        const bool both = QByteArray(line).contains(".eep");
        EXPECT_EQ(b.Run(line), both ? kRefused : kDone);
        EXPECT_EQ(b.Out(), both ? u"EEPROM 0004: ファイル FF, チップ 01\n"_s : QString());
    }
}

TEST(ReadCommand, WritesFilesThatVerifyAndReplacesNone) {
    CliBench b;
    b.Fill();
    const QString data = b.File(u"all.eep"_s, "precious");  // never named, and not to be touched
    EXPECT_EQ(b.RunJson("read @all.hex"), kWrongUse);
    EXPECT_EQ(b.ErrorCode(), "fileExists");
    EXPECT_TRUE(b.port.Wire().isEmpty());
    EXPECT_EQ(CliBench::Contents(data), "precious");
    EXPECT_EQ(b.Run("read @all.hex --overwrite"), kDone) << b.Err().toStdString();
    EXPECT_TRUE(b.Out().endsWith(u"保存しました: %1, %2\n"_s.arg(b.Path(u"all.hex"_s), data)));
    EXPECT_EQ(b.Run("check @all.hex @all.eep"), kDone);
    EXPECT_EQ(b.Run("verify @all.hex"), kDone);
    EXPECT_EQ(b.RunJson("read @no/all.hex"), kWrongUse);
    EXPECT_EQ(b.ErrorCode(), "fileNotWritten");
    EXPECT_EQ(b.RunJson("read @all.hex @all.hex --overwrite"), kWrongUse);
    EXPECT_EQ(b.RunJson("read -"), kWrongUse) << "an output for two memories";
    const QByteArray text = CliBench::Contents(data);
    EXPECT_EQ(b.Run("read - --only eeprom"), kDone);
    EXPECT_EQ(b.Out(), QString::fromUtf8(text)) << "and nothing else";
    Insert("AT90S2323")(b);
    EXPECT_EQ(b.Run("read @other.hex --force"), kDone);
    b.board.SetChip(b.chip.get());
    b.board.SetFaultFrom(b.board.CommandCount() + 1100, Silent);
    EXPECT_EQ(b.Run("read @all.hex --overwrite"), kRefused);
    EXPECT_EQ(CliBench::Contents(data), text) << "half a read replaces nothing";
}

TEST(EraseCommand, UnlocksAChipAndSaysSo) {
    CliBench b;
    b.Fill();
    b.chip->ProgramLock(0xF9);
    EXPECT_EQ(b.Run("erase"), kDone);
    EXPECT_TRUE(b.Err().contains(u"チップはロックされています。消去してロックを解除します。\n"_s));
    EXPECT_TRUE(b.Out().endsWith(u"Lock bit & Flash & EEPROM メモリクリアー完了。\n"_s));
    EXPECT_EQ(b.chip->Contents(), SimulatedChip(b.chip->Model()).Contents());
}

}  // namespace
}  // namespace tolvex::testing
