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
    EXPECT_EQ(b.Run("program @a.hex"), ExitStatus::Done) << b.Err().toStdString();
    const QRegularExpression told(
        u"^EEPROM のファイル: .*/a.eep\nｺﾏﾝﾄﾞ送信[^$]*\n"
        "消去して書き込みます: Flash 3 word, EEPROM 2 byte, 全体で 1.8 秒以上\n[^$]*\n"
        "ベリファイ　FLASH : OK / EEPROM : OK\nプログラム終了しました。\n$"_s);
    EXPECT_TRUE(told.match(b.Out()).hasMatch()) << b.Out().toStdString();
    EXPECT_EQ(b.Err().count(u"Flash Program Memory Programming !"_s), 1) << "a line a phase";
    b.File(u"UP.HEX"_s, HexRecord(0, kCode) + kHexEnd);
    b.File(u"UP.EEP"_s, HexRecord(0, kData) + kHexEnd);
    EXPECT_EQ(b.Outcome("verify @UP.HEX"), "0") << "the same rule as in the windows";
    QFile::remove(b.Path(u"UP.HEX"_s));
    QFile::remove(b.Path(u"UP.EEP"_s));
    EXPECT_EQ(b.settings.values, stored) << "the tool never writes the settings";
    EXPECT_EQ(QDir(b.Path({})).entryList(QDir::Files), files) << "nor any listings";
}

/// Everything is proven before the chip changes, and each refusal has one cause.
TEST(Commands, RefuseWhatIsWrong) {
    const QByteArray every =
        "detect; verify @a.hex; read @out.hex; read @out.hex --only flash; blank; dump; ";
    const Fault unset = [](CliBench& b) { b.settings.values.remove(u"ComNox"_s); };
    const std::tuple<Fault, QByteArray, const char*> cases[] = {
        // clang-format off
        {Insert("AT90S2323"), every + "erase; program @a.hex; erase --backup @bk", "1 wrongChip"},
        {Break(Contact::Low, 'v'), every + "erase; program @a.hex; lock full", "1 noContact"},
        {Break(Contact::High, 'L'), "read @out.hex; read @out.hex --only eeprom; verify @blank.hex; program @a.hex --keep-eeprom", "1 contactLost"},
        {Break(Contact::Low, 'L'), "read @out.hex; program @a.hex --backup @bk", "1 contactLost"},
        {Insert("none"), every + "erase; program @a.hex", "1 emptySocket"},
        {Lock(0xF9), every + "program @a.hex --backup @bk", "1 locked"},
        {kBusy, every + "erase; program @a.hex; lock full", "3 portBusy"},
        {Facts({.exists = true}), every + "erase; program @a.hex", "3 portForbidden"},
        {unset, every + "erase; program @a.hex; lock full", "2 noPort"},
        {Spoil('d', Wrong, 200), "program @a.hex --keep-eeprom", "1 unstable"},
        {Spoil('R', Wrong, 9), "program @a.eep --only eeprom", "1 unstable"},
        {kNothing, "program /dev/zero --force; verify @missing", "2 fileNotReadable"},
        {kNothing, "program @sum.hex; program @sum.hex --force; program @kind --force; verify @kind; program @a.s19; program @lib.o; program @big --format bin; program @none --format bin; batch @kind; batch @none.hex --serial eeprom:0=u8", "2 badFile"},
        {kNothing, "program @a.hex --backup @sum.hex/x; --trace @no/trace detect; read @no/x.hex; batch @a.hex --log /dev/full; batch @a.hex --log @no/log", "2 fileNotWritten"},
        {kNothing, "program @a.hex @a.eep --keep-eeprom; program @a.eep; program @a.hex @a.hex", "2 wrongUse"},
        {kNothing, "program @base.hex --force", "2 badFile"},
        {kNothing, "detect --trace @a.hex; read @out.hex --trace @sum.hex", "2 fileExists"},
        {kNothing, "program @a.hex --trace @a.eep --overwrite; check @a.hex --trace @a.hex --overwrite", "2 wrongUse"},
        {kNothing, "program @a.hex --format srec; read @out.hex --format elf; program @a.hex --only lock; program @a.hex @a.eep --only flash", "2 wrongUse"},
        {kNothing, "; check caf\xE9.hex; burn; program; program a b c; detect x; detect --force; read -", "2 wrongUse"},
        {kNothing, "batch @a.hex --count 0; batch @a.hex --serial eeprom:0x7F=u16le; batch @a.hex --serial flash:0=text:SN; batch - --serial eeprom:0=u8; batch @a.hex --log @a.hex", "2 wrongUse"},
        {kNothing, "blank --only lock; dump --only lock; dump x", "2 wrongUse"},
        {kNothing, "blank; blank --only eeprom", "1 notBlank"},
        {kNothing, "--port COM0 detect; --port 21 detect; --device AT90 detect", "2 wrongUse"},
        {kNothing, "read @out.hex @out.hex; read - --only flash --json", "2 wrongUse"},
        // clang-format on
    };
    for (const auto& [fault, lines, outcome] : cases) {
        for (const QByteArray& line : lines.split(';')) {
            SCOPED_TRACE((line + ": " + outcome).toStdString());
            CliBench b;
            b.File(u"blank.hex"_s, HexRecord(0, "\xFF") + kHexEnd);
            b.File(u"base.hex"_s,
                   HexRecord(0, kCode) + ":02000004008179\r\n" + HexRecord(0, kData) + kHexEnd);
            b.File(u"sum.hex"_s, ":0100000001FF\r\n" + kHexEnd);
            b.File(u"kind"_s, QByteArray("x\n").repeated(1000));
            b.File(u"a.s19"_s, "S1040000FFFC\nS1040001FF00\nS5030003F9\n");
            b.File(u"lib.o"_s,
                   "\x7F"
                   "ELF\1\1\1" +
                       QByteArray(60, '\0'));
            b.File(u"big"_s, QByteArray(2049, 'x'));
            b.File(u"none"_s, {});
            b.File(u"none.hex"_s, kHexEnd);
            b.File(u"none.serial"_s, "12 13\n");
            b.Fill();
            fault(b);
            const ChipContents before = b.chip->Contents();
            EXPECT_EQ(b.Outcome(line.toStdString()), outcome) << b.Err().toStdString();
            EXPECT_FALSE(b.Json()["verified"_L1].toBool());
            EXPECT_EQ(b.Err().count(u"tolvex-cli: "_s), 1) << b.Err().toStdString();
            EXPECT_EQ(b.chip->Contents(), before);
            EXPECT_TRUE(b.port.Wire().isEmpty() || outcome != "2 wrongUse"s);
            EXPECT_FALSE(b.port.Wire().contains(u"e"_s) || QFile::exists(b.Path(u"out.hex"_s)));
            EXPECT_TRUE(QDir(b.Path(u"bk"_s)).isEmpty());
        }
    }
}

/// What is told as written was acknowledged, and the proven chip has answered after it.
TEST(ProgramCommand, TellsWhatIsCertain) {
    const std::string none =
        R"({"eepromBytes":[],"erased":false,"flashWords":[],"uncertain":true})";
    const std::string erased =
        R"({"eepromBytes":[],"erased":true,"flashWords":[],"uncertain":false})";
    const std::string some = R"({"eepromBytes":[],"erased":true,"flashWords":[],"uncertain":true})";
    const std::tuple<Fault, const char*, std::string, std::string> cases[] = {
        {Spoil('P', Wrong, 2), "erase", "1 commandRefused", none},
        {Break(Contact::High, 'e'), "erase", "1 contactLost", none},
        {Break(Contact::Low, 'l'), "lock full", "1 contactLost", none},
        {Break(Contact::High, 'l'), "lock none", "1 contactLost", none},
        {Break(Contact::High, 'C'), "program @a.hex", "1 contactLost", some},
        {Spoil('A', Silent, 1), "program @a.hex", "1 writerSilent",
         R"({"eepromBytes":["0000-0001"],"erased":true,"flashWords":[],"uncertain":true})"},
        {Lock(0xF9), "program @a.hex --device AT90S2323", "1 wrongChip", none},
        {Lock(0xF9), "erase --device AT90S2323", "1 wrongChip", none},
        {Lock(0xF9), "erase", "0", erased},
    };
    for (const auto& [fault, line, outcome, written] : cases) {
        SCOPED_TRACE(line + (": " + outcome));
        CliBench b;
        b.Fill();
        b.board.AcknowledgeBlindly();
        fault(b);
        EXPECT_EQ(b.Outcome(line), outcome) << b.Err().toStdString();
        EXPECT_EQ(Compact(b.Json()["written"_L1].toObject()).toStdString(), written);
        EXPECT_EQ(b.Err().contains(u"プロテクト"_s), false);
    }
}

TEST(ProgramCommand, TellsThatTheEraseTakesALockAway) {
    for (const int lock : {0xFD, 0xFF}) {
        CliBench b(3);
        Lock(static_cast<std::uint8_t>(lock))(b);
        EXPECT_EQ(b.Outcome("program @a.eep --only eeprom"), "0") << b.Err().toStdString();
        EXPECT_EQ(b.Err().contains(u"lock write"_s), lock == 0xFD);
    }
}

TEST(ProgramCommand, LeavesAChipAloneThatHasItAlready) {
    const std::tuple<const char*, bool> cases[] = {
        {"program @a.hex --if-different", true},
        {"program @a.hex --only flash --if-different", true},
        {"program @b.hex --if-different", false},
        {"program @b.hex --only flash --if-different", false},
    };
    for (const auto& [line, same] : cases) {
        CliBench b;
        b.File(u"b.hex"_s, HexRecord(2, "\x07") + kHexEnd);
        EXPECT_EQ(b.Run("program @a.hex"), ExitStatus::Done);
        const auto start = b.port.Wire().size();
        EXPECT_EQ(b.Outcome(line), "0") << line;
        EXPECT_EQ(b.port.Wire().mid(start).contains(u"e"_s), !same) << line;
        EXPECT_TRUE(b.Json()["verified"_L1].toBool());
        EXPECT_EQ(b.Json()["written"_L1].toObject().isEmpty(), same);
    }
}

/// Chips of a tray: one comes in at each time given, the one before goes half a second earlier.
TEST(BatchCommand, ProgramsOneChipAfterTheOtherWithItsNumber) {
    CliBench b;
    std::map<int, SimulatedChip> tray;
    const std::pair<int, const char*> chips[] = {
        {3, "AT90S2313"}, {12, "AT90S2323"}, {21, "AT90S2313"}, {30, "AT90S2313"}};
    for (const auto& [second, part] : chips) {
        tray.try_emplace(second, *FindChipModel(QString::fromLatin1(part)));
    }
    tray.at(21).WearOut(0, -1);
    tray.at(21).ProgramFlashLow(0, 0);
    b.File(u"a.serial"_s, "258\n");
    b.board.SetChip(nullptr);
    b.signal = [&, in = tray.begin(), empty = true]() mutable {
        const double now = std::chrono::duration<double>(b.clock.Now()).count();
        if (in != tray.end() && now > in->first) {
            b.board.SetChip(&in->second);
            ++in;
            empty = false;
        } else if (in != tray.end() && !empty && now > in->first - 1.5) {
            b.board.SetChip(nullptr);
            empty = true;
        }
        return now > 39 ? 2 : 0;
    };
    EXPECT_EQ(b.Outcome("batch @a.hex --serial eeprom:0x10=u16be --log @log"), "1 chipsFailed");
    QStringList results;
    for (const QJsonValue& chip : b.Json()["chips"_L1].toArray()) {
        results << chip["result"_L1].toString() + chip["serial"_L1].toString();
    }
    EXPECT_EQ(results.join(u' ').toStdString(), "OK258 wrongChip differs259 OK260");
    EXPECT_EQ(tray.at(30).Contents().eeprom.mid(0x10, 2), "\x01\x04");
    EXPECT_TRUE(tray.at(3).Contents().flash.startsWith(kCode));
    EXPECT_EQ(Bytes(b.Path(u"a.serial"_s)), "261\n") << "a failed chip's number is spent";
    EXPECT_EQ(Bytes(b.Path(u"log"_s)).count('\n'), 5);
    EXPECT_TRUE(Bytes(b.Path(u"log"_s)).contains(",AT90S2313,1E:91:01,259,differs,"));
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
        EXPECT_EQ(b.Run("verify @a.hex --force"),
                  outcome == "0"s ? ExitStatus::Done : ExitStatus::Refused);
    }
}

TEST(ProgramCommand, ReadsAFileOnceAndKnowsHowLongItTakes) {
    for (const char* line : {"program @a.hex --keep-eeprom --verify all",
                             "program @a.hex --only flash", "program @a.eep --only eeprom"}) {
        SCOPED_TRACE(line);
        CliBench b;
        b.Fill();
        const ChipContents before = b.chip->Contents();
        b.File(u"a.eep"_s, HexRecord(0, "\x41\xFF\x42") + kHexEnd);
        b.signal = [&] { return QFile::remove(b.Words(line)[1]), 0; };
        EXPECT_EQ(b.Outcome(line), "0") << b.Err().toStdString();
        EXPECT_NEAR(b.Json()["plan"_L1]["seconds"_L1].toDouble(),
                    std::chrono::duration<double>(b.clock.Now()).count(), 0.01);
        EXPECT_EQ(b.Json()["written"_L1]["eepromBytes"_L1].toArray().size(),
                  before.flash == b.chip->Contents().flash ? 2 : 1);
        EXPECT_NE(b.chip->Contents().flash == before.flash,
                  b.chip->Contents().eeprom == before.eeprom);
    }
}

TEST(ProgramCommand, SavesABackupThatRestoresTheChip) {
    CliBench b;
    b.Fill();
    const ChipContents before = b.chip->Contents();
    EXPECT_EQ(b.Outcome("program @a.hex --backup @bk"), "0");
    const QString saved = b.Json()["backup"_L1]["code"_L1].toString();
    EXPECT_EQ(b.Run("erase --backup @bk"), ExitStatus::Done) << "within the same second";
    EXPECT_EQ(QDir(b.Path(u"bk"_s)).entryList({u"AT90S2313-20*.*"_s}).size(), 4);
    EXPECT_EQ(b.Run({u"program"_s, saved}), ExitStatus::Done);
    EXPECT_EQ(b.chip->Contents(), before);
}

TEST(ProgramCommand, QuietKeepsCausesAndDifferences) {
    CliBench b;
    Spoil('C', Wrong, 2)(b);
    b.signal = [&] {  // a refusal is one however late it comes
        b.port.DelayReplies(std::chrono::seconds(b.port.Wire().contains(u"e"_s) ? 3 : 0));
        return 0;
    };
    EXPECT_EQ(b.Run("program @a.hex --quiet"), ExitStatus::Refused);
    b.signal = [] { return 0; };
    b.port.DelayReplies({});
    EXPECT_EQ(b.Out(), QString());
    EXPECT_EQ(b.Err().section(u'\n', 0, 2).toStdString(),
              "ｺﾐﾆｭｹｰｼｮﾝ失敗 : Hi byte Write Data Memory C\nFlashメモリ ライト失敗\n"
              "tolvex-cli: ライタがコマンドを拒否しました。書き込みを確認できませんでした。");
    Spoil('R', Wrong, 5)(b);
    EXPECT_EQ(b.Run("program @a.hex --quiet"), ExitStatus::Refused);
    EXPECT_TRUE(b.Out().startsWith(u"Flash  0001: ファイル 0403, チップ "_s));
    EXPECT_EQ(b.Run("program @a.hex --quiet"), ExitStatus::Done);
    EXPECT_EQ(b.Out() + b.Err(), QString());
}

TEST(ProgramCommand, ASignalDuringAWaitEndsItAtOnce) {
    for (const char letter : {'S', 'T', 's', 'L', 'e', 'C'}) {
        CliBench b;
        Spoil(letter, Silent)(b);
        b.signal = [&] { return b.port.Wire().join(u' ').contains(QLatin1Char(letter)) ? 15 : 0; };
        EXPECT_EQ(b.Outcome("program @a.hex"), "143 interrupted") << letter;
        EXPECT_LT(b.clock.Now(), std::chrono::seconds(3)) << "the check's second, and no time-out";
        EXPECT_FALSE(b.board.InProgrammingMode());
        EXPECT_EQ(
            b.Err().contains(u"\nチップの消去は確認できていません。\nFlash: 書き込みなし\n"_s),
            letter == 'e');
    }
}

}  // namespace
}  // namespace tolvex::testing
