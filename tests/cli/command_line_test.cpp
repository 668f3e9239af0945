// SPDX-License-Identifier: MIT
#include "cli/command_line.h"

#include <gtest/gtest.h>

#include <QJsonArray>

#include "cli/command.h"
#include "tests/cli/cli_bench.h"

namespace tolvex::testing {
namespace {

TEST(CommandLine, RefusesWhatItDoesNotKnow) {
    for (const char* line :
         {"", "burn", "program", "program a b c", "detect x", "detect --force",
          "--port COM0 detect", "--port 21 detect", "--device AT90 detect",
          "--trace @no/trace detect", "check caf\xE9.hex", "read - --only flash --json"}) {
        SCOPED_TRACE(line);
        CliBench b;
        EXPECT_EQ(b.Run(line), kWrongUse);
        EXPECT_TRUE(b.Err().startsWith(u"tolvex-cli: "_s));
        EXPECT_TRUE(b.Out().isEmpty() || b.Out().startsWith(u'{'));
        EXPECT_TRUE(b.port.Wire().isEmpty());
        EXPECT_EQ(b.RunJson(line), kWrongUse);
        EXPECT_EQ(b.Json()["exitStatus"_L1].toInt(), kWrongUse);
    }
}

TEST(CommandLine, HelpsWithEachCommand) {
    CliBench b;
    EXPECT_EQ(b.Run("--help"), kDone);
    const QString overview = b.Out();
    for (const CommandRow& command : CommandRows()) {
        EXPECT_TRUE(overview.contains(u"\n  "_s + command.name));
        EXPECT_EQ(b.Run({command.name, u"--help"_s}), kDone);
        EXPECT_TRUE(b.Out().contains((command.name + u' ' + command.arguments).trimmed()));
        for (const QCommandLineOption& option : command.options) {
            EXPECT_TRUE(b.Out().contains(u"--"_s + option.names().first()));
        }
    }
    EXPECT_EQ(b.RunJson("--help"), kDone);
    EXPECT_EQ(b.Json()["help"_L1].toString() + u'\n', overview);
}

/// An option goes before the environment, and that before what is stored.
TEST(CommandLine, ChoosesPortAndDevice) {
    struct Case {
        const char* options;
        const char* portVariable;
        const char* deviceVariable;
        int number;  ///< that is opened
        const char* device;
        const char* path;
        bool numbered = true;
    };
    const Case cases[] = {
        {"", "", "", 1, "AT90S2313", "/dev/ttyS0"},
        {"--port COM5", "/dev/ttyUSB1", "", 5, "AT90S2313", "/dev/ttyUSB0"},
        {"--port=20", "", "", 20, "AT90S2313", "/dev/ttyACM7"},
        {"--port /dev/ttyUSB1", "", "", 6, "AT90S2313", "/dev/ttyUSB1", false},
        {"", "ttyUSB1", "", 6, "AT90S2313", "/dev/ttyUSB1", false},
        {"--port /a/board", "", "", 1, "AT90S2313", "/a/board", false},
        {"--device at90s1200a", "", "AT90S8515", 1, "AT90S1200A", "/dev/ttyS0"},
        {"", "", "at90s8515", 1, "AT90S8515", "/dev/ttyS0"},
        {"--device AT90S1200~(外部ｸﾛｯｸ)", "", "", 1, "AT90S1200", "/dev/ttyS0"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(&c - cases);
        CliBench b;
        qputenv("TOLVEX_PORT", c.portVariable);
        qputenv("TOLVEX_DEVICE", c.deviceVariable);
        b.RunJson((QByteArray("detect ") + c.options).constData());
        const QJsonObject json = b.Json();
        EXPECT_EQ(b.port.PortNumber(), c.number);
        EXPECT_EQ(json["device"_L1].toString().toStdString(), c.device);
        EXPECT_EQ(json["port"_L1]["path"_L1].toString().toStdString(), c.path);
        EXPECT_EQ(json["port"_L1]["number"_L1].toInt(), c.numbered ? c.number : 0);
        EXPECT_TRUE(json["messages"_L1][1].toString().endsWith(
            c.numbered ? u" COM%1"_s.arg(c.number) : u' ' + QString::fromUtf8(c.path)));
    }
    CliBench b;
    qputenv("TOLVEX_DEVICE", "AT91");
    EXPECT_EQ(b.Run("detect"), kWrongUse);
    EXPECT_TRUE(b.Err().contains(u"TOLVEX_DEVICE"_s)) << b.Err().toStdString();
}

TEST(ListCommands, ShowWhatThereIs) {
    CliBench b;
    EXPECT_EQ(b.Run("devices"), kDone);
    EXPECT_TRUE(b.Out().startsWith(
        u"AT90S1200   Flash  512 word  EEPROM  64 byte  AT90S1200 (外部ｸﾛｯｸ)\n"_s));
    EXPECT_TRUE(b.Out().endsWith(u"AT90S8535   Flash 4096 word  EEPROM 512 byte  FSTRT\n"_s));
    b.facts.permitted = false;
    EXPECT_EQ(b.Run("ports"), kDone);
    EXPECT_EQ(b.Out().count(u'\n'), 20);
    EXPECT_TRUE(b.Out().contains(u"\nCOM5  /dev/ttyUSB0   権限なし"_s)) << b.Out().toStdString();
    EXPECT_EQ(b.RunJson("ports"), kDone);
    EXPECT_FALSE(b.Json()["ports"_L1][4]["permitted"_L1].toBool(true));
}

TEST(CheckCommand, ReportsEveryFileByLine) {
    CliBench b;
    const QByteArray record = HexRecord(0x7FF, "\x01");
    b.File(u"good.hex"_s, record + kHexEnd);
    b.File(u"bad.EEP"_s, HexRecord(0, "\x02") + record);
    b.File(u"many.hex"_s, QByteArray("x\n").repeated(100'000));
    EXPECT_EQ(b.Run("check @good.hex"), kDone);
    EXPECT_EQ(b.RunJson("check @bad.EEP"), kWrongUse);
    EXPECT_EQ(b.ErrorCode(), "badFile");
    EXPECT_EQ(
        b.Json()["checked"_L1][0]["findings"_L1][0].toObject(),
        (QJsonObject{{u"line"_s, 2}, {u"fault"_s, u"outsideMemory"_s}, {u"address"_s, 2047}}));
    EXPECT_EQ(b.Run("check @bad.EEP @good.hex @none"), kWrongUse);
    EXPECT_EQ(b.Out().remove(b.Path({}) + u'/').toStdString(),
              "bad.EEP: 2 行目: デバイスのメモリの外のデータです。 (0x7FF)\n"
              "bad.EEP: 2 行目: エンドレコードがありません。\n"
              "good.hex: OK (1 byte / 2048 byte)\nnone: 読めません。\n");
    EXPECT_EQ(b.Run("check @many.hex"), kWrongUse);
    EXPECT_EQ(b.Out().count(u'\n'), 11) << "ten lines, and that the end is missing";
    EXPECT_TRUE(b.Out().contains(u"10 行目: 行頭がコロンではありません。 ほか 99990 行\n"_s));
}

TEST(Trace, HoldsEveryByteWithItsTime) {
    CliBench b;
    Spoil('V', FaultKind::HangUp)(b);
    EXPECT_EQ(b.Run("detect --trace @t"), kRefused);
    // A byte takes 521 us on the wire.
    EXPECT_EQ(CliBench::Contents(b.Path(u"t"_s)).toStdString(),
              "0 open COM1\n0 > 53\n1042 < 41\n1563 < 56\n2084 < 52\n2605 < 20\n3125 < 49\n"
              "3646 < 53\n4167 < 50\n4167 > 56\n5209 lost\n");
}

TEST(ProgressOnATerminal, IsOneLineThatFitsWithTheTimeLeft) {
    // 1024 words of 3 bytes take 1.6 s; half of it is left at 50 %.
    for (const auto& [columns, bar] : {std::pair{80, u" [###############...............]"_s},
                                       {64, u" [#######........]"_s},
                                       {48, QString()},
                                       {30, QString()}}) {
        CliBench b;
        b.columns = columns;
        EXPECT_EQ(b.Run("read @a.hex"), kDone);
        const QStringList steps = b.Err().split(u"\r\033[K"_s);
        EXPECT_EQ(steps.contains(u"Flash Program Memory Reading !%1  50% 残り 0:01"_s.arg(bar)),
                  columns > 30)
            << steps[60].toStdString();
        for (const QString& step : steps) {
            EXPECT_LT(step.size() + step.count(QRegularExpression(u"[ぁ-龠]"_s)), columns);
        }
        EXPECT_FALSE(b.Err().contains(u'\n'));
        EXPECT_EQ(steps.last(), QString()) << "the line is wiped at the end";
    }
}

}  // namespace
}  // namespace tolvex::testing
