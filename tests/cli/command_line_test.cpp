// SPDX-License-Identifier: MIT
#include "cli/command_line.h"

#include <gtest/gtest.h>

#include <QJsonArray>

#include "cli/command.h"
#include "tests/cli/cli_bench.h"

namespace tolvex::testing {
namespace {

TEST(CommandLine, RefusesWhatItDoesNotKnow) {
    const QList<QStringList> cases = {
        {},
        {u"burn"_s},
        {u"program"_s},
        {u"program"_s, u"a"_s, u"b"_s, u"c"_s},
        {u"detect"_s, u"x"_s},
        {u"detect"_s, u"--force"_s},
        {u"--port"_s, u"COM0"_s, u"detect"_s},
        {u"--port"_s, u"21"_s, u"detect"_s},
        {u"--device"_s, u"AT90"_s, u"detect"_s},
        {u"--trace"_s, u"/no/such/folder/trace"_s, u"detect"_s},
        {u"check"_s, QString::fromUtf8("caf\xE9.hex")},
    };
    for (const QStringList& arguments : cases) {
        SCOPED_TRACE(arguments.join(u' ').toStdString());
        CliBench bench;
        EXPECT_EQ(bench.Run(arguments), kWrongUse);
        EXPECT_TRUE(bench.Err().startsWith(u"tolvex-cli: "_s));
        EXPECT_EQ(bench.Out(), QString());
        EXPECT_TRUE(bench.port.Wire().isEmpty());
        EXPECT_EQ(bench.RunJson(arguments), kWrongUse);
        EXPECT_EQ(bench.Json()["exitStatus"_L1].toInt(), kWrongUse);
    }
}

TEST(CommandLine, HelpsWithEachCommand) {
    CliBench bench;
    EXPECT_EQ(bench.Run({u"--help"_s}), kDone);
    const QString overview = bench.Out();
    for (const CommandRow& command : CommandRows()) {
        EXPECT_TRUE(overview.contains(u"\n  "_s + command.name));
        EXPECT_EQ(bench.Run({command.name, u"--help"_s}), kDone);
        EXPECT_TRUE(bench.Out().contains((command.name + u' ' + command.arguments).trimmed()));
        for (const QCommandLineOption& option : command.options) {
            EXPECT_TRUE(bench.Out().contains(u"--"_s + option.names().first()));
        }
    }
    EXPECT_EQ(bench.RunJson({u"--help"_s}), kDone);
    EXPECT_EQ(bench.Json()["help"_L1].toString() + u'\n', overview);
    EXPECT_EQ(bench.RunJson({u"--version"_s}), kDone);
    EXPECT_TRUE(bench.Json()["version"_L1].toString().startsWith(u"tolvex-cli Version "_s));
}

/// An option goes before the environment, and that before what is stored.
TEST(CommandLine, ChoosesPortAndDevice) {
    struct Case {
        QStringList options;
        QString portVariable;
        QString deviceVariable;
        int number;  ///< that is opened
        QString device;
        QString path;
        bool numbered;
    };
    CliBench bench;
    const QString link = bench.Path(u"board"_s);
    const QString usb = u"/dev/ttyUSB1"_s;
    const Case cases[] = {
        {{}, {}, {}, 1, u"AT90S2313"_s, u"/dev/ttyS0"_s, true},
        {{u"--port"_s, u"COM5"_s}, usb, {}, 5, u"AT90S2313"_s, u"/dev/ttyUSB0"_s, true},
        {{u"--port=20"_s}, {}, {}, 20, u"AT90S2313"_s, u"/dev/ttyACM7"_s, true},
        {{u"--port"_s, usb}, {}, {}, 6, u"AT90S2313"_s, usb, false},
        {{}, u"ttyUSB1"_s, {}, 6, u"AT90S2313"_s, usb, false},
        {{u"--port"_s, link}, {}, {}, 1, u"AT90S2313"_s, link, false},
        {{u"--device"_s, u"at90s1200a"_s}, {}, u"AT90S8515"_s, 1, u"AT90S1200A"_s, link, true},
        {{}, {}, u"at90s8515"_s, 1, u"AT90S8515"_s, link, true},
        {{u"--device"_s, u"AT90S1200 (外部ｸﾛｯｸ)"_s}, {}, {}, 1, u"AT90S1200"_s, link, true},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.options.join(u' ').toStdString());
        qputenv("TOLVEX_PORT", c.portVariable.toUtf8());
        qputenv("TOLVEX_DEVICE", c.deviceVariable.toUtf8());
        bench.RunJson(QStringList{u"detect"_s} + c.options);
        const QJsonObject json = bench.Json();
        EXPECT_EQ(bench.port.PortNumber(), c.number);
        EXPECT_EQ(json["device"_L1].toString(), c.device);
        EXPECT_EQ(json["port"_L1]["path"_L1].toString(), c.path);
        EXPECT_EQ(json["port"_L1]["number"_L1].toInt(), c.numbered ? c.number : 0);
        EXPECT_EQ(json["messages"_L1][1].toString(),
                  u"ライタを検出しました。 "_s + (c.numbered ? u"COM%1"_s.arg(c.number) : c.path));
    }
    qputenv("TOLVEX_DEVICE", "AT91");
    EXPECT_EQ(bench.Run({u"detect"_s}), kWrongUse);
    EXPECT_TRUE(bench.Err().contains(u"TOLVEX_DEVICE"_s)) << bench.Err().toStdString();
}

TEST(DevicesCommand, ListsTheCatalogue) {
    CliBench bench;
    EXPECT_EQ(bench.Run({u"devices"_s}), kDone);
    EXPECT_TRUE(bench.Out().startsWith(
        u"AT90S1200   Flash  512 word  EEPROM  64 byte  AT90S1200 (外部ｸﾛｯｸ)\n"_s))
        << bench.Out().toStdString();
    EXPECT_TRUE(bench.Out().endsWith(u"AT90S8535   Flash 4096 word  EEPROM 512 byte  FSTRT\n"_s));
    EXPECT_EQ(bench.RunJson({u"devices"_s}), kDone);
    EXPECT_EQ(bench.Json()["devices"_L1].toArray().size(), 10);
}

TEST(PortsCommand, ListsAllNumbers) {
    CliBench bench;
    bench.facts.permitted = false;
    EXPECT_EQ(bench.Run({u"ports"_s}), kDone);
    const QStringList lines = bench.Out().split(u'\n', Qt::SkipEmptyParts);
    ASSERT_EQ(lines.size(), 20);
    EXPECT_TRUE(lines[4].startsWith(u"COM5  /dev/ttyUSB0   権限なし"_s)) << lines[4].toStdString();
    EXPECT_EQ(bench.RunJson({u"ports"_s}), kDone);
    EXPECT_EQ(bench.Json()["ports"_L1][4]["path"_L1].toString(), u"/dev/ttyUSB0"_s);
    EXPECT_FALSE(bench.Json()["ports"_L1][4]["permitted"_L1].toBool());
}

TEST(CheckCommand, ReportsEveryFileByLine) {
    CliBench bench;
    const QByteArray record = HexRecord(0x7FF, "\x01");
    const QString good = bench.File(u"good.hex"_s, record + kHexEnd);
    const QString bad = bench.File(u"bad.EEP"_s, HexRecord(0, "\x02") + record);
    EXPECT_EQ(bench.Run({u"check"_s, good}), kDone);
    EXPECT_EQ(bench.Out(), u"%1: OK (1 byte / 2048 byte)\n"_s.arg(good));
    EXPECT_EQ(bench.Run({u"check"_s, bad, good, bench.Path(u"none"_s)}), kWrongUse);
    EXPECT_EQ(
        bench.Out().toStdString(),
        u"%1: 2 行目: デバイスのメモリの外のデータです。 (0x7FF)\n"
        "%1: 2 行目: エンドレコードがありません。\n"
        "%2: OK (1 byte / 2048 byte)\n%3: 読めません。\n"_s.arg(bad, good, bench.Path(u"none"_s))
            .toStdString());
    EXPECT_EQ(bench.RunJson({u"check"_s, bad}), kWrongUse);
    EXPECT_EQ(
        bench.Json()["checked"_L1][0]["findings"_L1][0].toObject(),
        (QJsonObject{{u"line"_s, 2}, {u"fault"_s, u"outsideMemory"_s}, {u"address"_s, 2047}}));
    const QString many = bench.File(u"many.hex"_s, QByteArray("x\n").repeated(100'000));
    EXPECT_EQ(bench.Run({u"check"_s, many}), kWrongUse);
    EXPECT_EQ(bench.Out().count(u'\n'), 11) << "ten lines, and that the end is missing";
    EXPECT_TRUE(bench.Out().contains(u"10 行目: 行頭がコロンではありません。 ほか 99990 行\n"_s));
}

TEST(Trace, HoldsEveryByteWithItsTime) {
    CliBench bench;
    bench.board.SetLetterFault('V', FaultKind::HangUp);
    EXPECT_EQ(bench.Run({u"detect"_s, u"--trace"_s, bench.Path(u"t"_s)}), kRefused);
    // A byte takes 521 us on the wire.
    EXPECT_EQ(CliBench::Contents(bench.Path(u"t"_s)).toStdString(),
              "0 open COM1\n0 > 53\n1042 < 41\n1563 < 56\n2084 < 52\n2605 < 20\n3125 < 49\n"
              "3646 < 53\n4167 < 50\n4167 > 56\n5209 lost\n");
}

TEST(ProgressOnATerminal, IsOneLineThatFitsWithTheTimeLeft) {
    for (const int columns : {80, 64, 30}) {
        CliBench bench;
        bench.columns = columns;
        EXPECT_EQ(bench.Run({u"read"_s, bench.Path(u"a.hex"_s)}), kDone);
        const QStringList steps = bench.Err().split(u"\r\033[K"_s);
        // 1024 words of 3 bytes take 1.6 s; half of it is left at 50 %.
        const QString bar = columns == 80   ? u"%1%2"_s.arg(QString(15, u'#'), QString(15, u'.'))
                            : columns == 64 ? u"%1%2"_s.arg(QString(7, u'#'), QString(8, u'.'))
                                            : QString();
        const QString half = u"Flash Program Memory Reading ! [%1]  50% 残り 0:01"_s.arg(bar);
        EXPECT_EQ(steps.contains(half), !bar.isEmpty()) << steps[60].toStdString();
        for (const QString& step : steps) {
            EXPECT_LT(step.size() + step.count(QRegularExpression(u"[ぁ-龠]"_s)), columns);
        }
        EXPECT_FALSE(bench.Err().contains(u'\n'));
        EXPECT_EQ(steps.last(), QString()) << "the line is wiped at the end";
    }
}

}  // namespace
}  // namespace tolvex::testing
