// SPDX-License-Identifier: MIT
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

/// Every chip is known by its own three bytes, and by no other's.
TEST(DetectCommand, NamesThePartInTheSocket) {
    for (int chip = 0; chip < 10; ++chip) {
        CliBench b(chip);
        EXPECT_EQ(b.Outcome("detect"), "0") << chip;
        EXPECT_EQ(b.Json()["part"_L1].toString(),
                  chip == 1 ? u"AT90S1200"_s : b.Json()["device"_L1].toString());
        Insert(QByteArray::number((chip + 2) % 10).constData())(b);
        EXPECT_EQ(b.Outcome("detect"), "1 wrongChip");
        b.board = SimulatedWriter(b.chip.get(), u"3.5"_s);
        EXPECT_EQ(b.Run("detect --quiet"), kDone);
        EXPECT_EQ(b.Err().contains(u"ファームウエア 3.5"_s), chip == 4 || chip == 7);
    }
}

TEST(VerifyCommand, ListsTheDifferences) {
    CliBench b;
    ChipContents contents = b.chip->Contents();
    contents.flash.replace(0, 6, "\x01\x02\x03\x05\x05\x06");
    contents.eeprom.replace(0, 3, "\x41\x42\x01");
    b.chip->SetContents(contents);
    const QString flash = u"Flash  0001: ファイル 0403, チップ 0503\n"_s;
    EXPECT_EQ(b.Run("verify @a.hex @a.eep --quiet"), kRefused);
    EXPECT_EQ(b.Out(), flash + u"EEPROM 0002: ファイル FF, チップ 01\n"_s);
    EXPECT_EQ(b.Outcome("verify @a.hex --only flash"), "1 differs");
    EXPECT_FALSE(b.Json()["verified"_L1].toBool(true));
    EXPECT_EQ(Compact(b.Json()["differences"_L1][0].toObject()),
              R"({"address":1,"chip":1283,"expected":1027,"memory":"flash"})");
}

TEST(ReadCommand, WritesFilesThatVerifyAndReplacesNone) {
    CliBench b;
    b.Fill();
    const QString data = b.File(u"all.eep"_s, "precious");  // never named
    EXPECT_EQ(b.Outcome("read @all.hex"), "2 fileExists");
    EXPECT_TRUE(b.port.Wire().isEmpty() && CliBench::Contents(data) == "precious");
    EXPECT_EQ(b.Run("read @all.hex --overwrite"), kDone) << b.Err().toStdString();
    EXPECT_TRUE(b.Out().endsWith(u"保存しました: %1, %2\n"_s.arg(b.Path(u"all.hex"_s), data)));
    EXPECT_EQ(b.Run("verify @all.hex"), kDone);
    const QByteArray text = CliBench::Contents(data);
    EXPECT_EQ(b.Run("read - --only eeprom"), kDone);
    EXPECT_EQ(b.Out(), QString::fromUtf8(text)) << "and nothing else";
    Insert("AT90S2323")(b);
    EXPECT_EQ(b.Run("read @other.hex --force"), kDone);
}

TEST(EraseCommand, UnlocksAChipAndSaysSo) {
    CliBench b;
    b.Fill();
    b.chip->ProgramLock(0xF9);
    EXPECT_EQ(b.Run("erase"), kDone);
    EXPECT_TRUE(b.Err().contains(u"チップはロックされています。消去してロックを解除します。\n"_s));
    EXPECT_EQ(b.chip->Contents(), SimulatedChip(b.chip->Model()).Contents());
}

}  // namespace
}  // namespace tolvex::testing
