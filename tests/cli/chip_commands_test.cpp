// SPDX-License-Identifier: MIT
#include <QJsonArray>

#include "tests/cli/cli_bench.h"

namespace tolvex::testing {
namespace {

using enum FaultKind;

TEST(DetectCommand, ShowsWriterAndChip) {
    CliBench b;
    EXPECT_EQ(b.Run("detect --quiet"), ExitStatus::Done);
    EXPECT_EQ(b.Out().toStdString(),
              "ライタ: AVR ISP\nファームウエア: 3.9\nハードウエア: 1.0\n"
              "シグネチャ: 1E:91:01 (AT90S2313)\nデバイス: AT90S2313 (一致)\n");
    EXPECT_EQ(b.Err(), QString());
}

/// Every chip is known by its own three bytes, and by no other's.
TEST(DetectCommand, NamesThePartInTheSocket) {
    const auto count = static_cast<int>(Catalogue().size());
    ASSERT_EQ(ChipModels().size(), Catalogue().size());
    for (int chip = 0; chip < count; ++chip) {
        CliBench b(chip);
        EXPECT_EQ(b.Outcome("detect"), "0") << chip;
        EXPECT_EQ(b.Json()["part"_L1].toString(),
                  chip == 1 ? u"AT90S1200"_s : b.Json()["device"_L1].toString());
        Insert(QByteArray::number((chip + 2) % count).constData())(b);
        EXPECT_EQ(b.Outcome("detect"), "1 wrongChip");
        b.board = SimulatedWriter(b.chip.get(), u"3.5"_s);
        EXPECT_EQ(b.Run("detect --quiet"), ExitStatus::Done);
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
    EXPECT_EQ(b.Run("verify @a.hex @a.eep --quiet"), ExitStatus::Refused);
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
    EXPECT_TRUE(b.port.Wire().isEmpty() && Bytes(data) == "precious");
    EXPECT_EQ(b.Run("read @all.hex --overwrite"), ExitStatus::Done) << b.Err().toStdString();
    EXPECT_TRUE(b.Out().endsWith(u"保存しました: %1, %2\n"_s.arg(b.Path(u"all.hex"_s), data)));
    EXPECT_EQ(b.Run("verify @all.hex"), ExitStatus::Done);
    for (const char* line : {"read @all.s19 --overwrite --format srec; verify @all.s19",
                             "read @all.bin --overwrite --format bin; verify @all.bin --format bin",
                             "read @all.lower --overwrite; verify @all.lower"}) {
        const QList<QByteArray> lines = QByteArray(line).split(';');
        EXPECT_EQ(b.Run(lines[0].constData()), ExitStatus::Done) << line;
        const QString lower = b.Path(u"all.lower"_s);
        PutFile(lower, QFile::exists(lower) ? Bytes(lower).toLower() : "");
        EXPECT_EQ(b.Run(lines[1].constData()), ExitStatus::Done) << line << b.Err().toStdString();
    }
    EXPECT_EQ(b.Run("dump --only eeprom"), ExitStatus::Done);
    EXPECT_TRUE(
        b.Out().startsWith(u"0000: 07 08 09 0A 0B 0C 0D 0E 0F 10 11 12 13 14 15 16 ････"_s));
    const QByteArray text = Bytes(data);
    EXPECT_EQ(b.Run("read - --only eeprom"), ExitStatus::Done);
    EXPECT_EQ(b.Out(), QString::fromUtf8(text)) << "and nothing else";
    Insert("AT90S2323")(b);
    EXPECT_EQ(b.Run("read @other.hex --force"), ExitStatus::Done);
}

constexpr int kLockOnly = 2;  // AT90S2313
constexpr int kFstrt = 3;     // AT90S2323
constexpr int kBodCksel = 4;  // AT90S2333
constexpr int kRcen = 5;      // AT90S2343

TEST(FuseCommands, WriteWhatWasNamedAndNothingElse) {
    const Fault allOnes = [](CliBench& b) {
        ChipContents contents = b.chip->Contents();
        contents.fuses = 0xFF;
        b.chip->SetContents(contents);
    };
    const std::tuple<int, const char*, Fault, std::string, const char*> cases[] = {
        {kFstrt, "fuses FSTRT=Enable", {}, "0", "f BE"},
        {kRcen, "fuses rcen=enable LOCK=write", {}, "0", "f BE l FD"},
        {kRcen, "fuses LOCK=full RCEN=Enable", {}, "0", "f BE l F9"},
        {kBodCksel, "fuses CKSEL=6~CK", {}, "0", "f B9"},
        {kBodCksel, "fuses BODLEVEL=4.0V BODEN=enable", {}, "0", "f A7"},
        {kBodCksel, "lock 書込み禁止", {}, "0", "l FD"},
        {kLockOnly, "lock full", {}, "0", "l F9"},
        {kLockOnly, "lock write", {}, "0 unconfirmed", "l FD"},
        {kLockOnly, "lock 1", {}, "2 wrongUse", ""},
        {kLockOnly, "fuses", {}, "2 notReadable", ""},
        {kFstrt, "fuses FSTRT", {}, "2 wrongUse", ""},
        {kFstrt, "fuses RCEN=Enable", {}, "2 wrongUse", ""},
        {kFstrt, "fuses LOCK=write lock=none", {}, "2 wrongUse", ""},
        {kFstrt, "fuses FSTRT=unknown", {}, "2 wrongUse", ""},
        {kFstrt, "lock none", Lock(0xFD), "1 notAccepted", "l FF"},
        {kFstrt, "fuses", Lock(0xF9), "1 locked", ""},
        {kLockOnly, "lock full", Insert("AT90S2323"), "1 wrongChip", ""},
        {kFstrt, "fuses FSTRT=Enable", Spoil('F', Wrong, 2), "1 implausible", ""},
        {kBodCksel, "fuses BODEN=Enable", Spoil('r', Wrong, 1), "1 unstable", ""},
        {kBodCksel, "fuses BODEN=Enable", Spoil('r', Wrong, 3), "1 notAccepted", "f B2"},
    };
    for (const auto& [chip, line, fault, outcome, writes] : cases) {
        SCOPED_TRACE(line + (": " + outcome));
        CliBench b(chip);
        (fault ? fault : allOnes)(b);
        const std::string end = b.Outcome(line);
        const bool open = end == "0" && !b.Json()["confirmed"_L1].toBool(true);
        EXPECT_EQ(end + (open ? " unconfirmed" : ""), outcome) << b.Err().toStdString();
        const QStringList wire = b.port.Wire(), sent = wire.filter(QRegularExpression(u"^[fl] "_s));
        EXPECT_EQ(sent.join(u' ').toStdString(), writes);
        EXPECT_EQ(wire.isEmpty(), outcome[0] > '1');
        const QJsonObject told = b.Json()["written"_L1].toObject();
        for (const QString& write : outcome[0] == '0' ? sent : QStringList()) {
            const QLatin1StringView key = write[0] == u'f' ? "fuseByte"_L1 : "lockByte"_L1;
            EXPECT_EQ(HexByte(told[key].toInt()), write.mid(2));
        }
    }
}

TEST(FuseCommands, ShowWhatChangesFirstAndWhatTheChipHas) {
    CliBench b(kBodCksel);
    EXPECT_EQ(b.Run("fuses CKSEL=1K~CK"), ExitStatus::Done);
    const QString change = u"CKSEL: 64ms + 16K CK -> 1K CK\nヒューズバイト: 0xBA -> 0xBF\n"_s;
    EXPECT_TRUE(b.Out().contains(change)) << b.Out().toStdString();
    EXPECT_LT(b.Out().indexOf(change), b.Out().indexOf(u"ライトが完了しました。"_s));
    EXPECT_EQ(b.Run("fuses --quiet"), ExitStatus::Done);
    EXPECT_EQ(b.Out(), u"BODLEVEL = 2.7V\nBODEN = Disable\nCKSEL = 1K CK\nLOCK = none\n"_s);
    // LB2 alone stands for no entry: told, and left as it is.
    b.chip->ProgramLock(0xFB);
    EXPECT_EQ(b.Outcome("fuses BODEN=Enable"), "0") << b.Err().toStdString();
    EXPECT_EQ(Compact(b.Json()["options"_L1].toObject()),
              R"({"BODEN":"Enable","BODLEVEL":"2.7V","CKSEL":"1K CK","LOCK":"unknown"})");
    EXPECT_EQ(b.chip->Contents().lock, 0xFB);
    b.chip->ProgramLock(0xF9);
    EXPECT_EQ(b.Run("erase"), ExitStatus::Done);
    EXPECT_EQ(b.chip->Contents().lock, 0xFF);
    EXPECT_TRUE(b.Err().contains(u"チップはロックされています。消去してロックを解除します。\n"_s));
}

}  // namespace
}  // namespace tolvex::testing
