// SPDX-License-Identifier: MIT
#include "cli/command_line.h"

#include <QDir>
#include <QJsonArray>
#include <QRegularExpression>

#include "base/language.h"
#include "cli/command.h"
#include "device/catalogue.h"
#include "tests/cli/cli_bench.h"

namespace tolvex::testing {
namespace {

QString Source(const QString& path) {
    return QString::fromUtf8(Bytes(QStringLiteral(TOLVEX_SOURCE_DIR "/") + path));
}

/// Help, manual, page and completions name every command and option, and every chip.
TEST(CommandLine, IsExplainedWholeEverywhere) {
    CliBench b;
    EXPECT_EQ(b.Outcome("--help"), "0");
    const QString overview = b.Json()["help"_L1].toString();
    const QString page = Source(u"docs/cli.md"_s), bash = Source(u"packaging/bash_completion"_s),
                  zsh = Source(u"packaging/zsh_completion"_s),
                  fish = Source(u"packaging/fish_completion"_s);
    const QStringList manuals = {Source(u"docs/man/tolvex.scd"_s),
                                 Source(u"docs/man/tolvex.ja.scd"_s)};
    QStringList names;
    for (const CliCommand& command : CliCommands()) {
        SCOPED_TRACE(command.name.toStdString());
        names << command.name;
        EXPECT_EQ(b.Run({command.name, u"--help"_s}), ExitStatus::Done);
        EXPECT_TRUE(b.Out().contains((command.name + u' ' + command.arguments).trimmed()));
        EXPECT_TRUE(overview.contains(u"\n  "_s + command.name) &&
                    page.contains(u'`' + command.name));
        QString options;
        for (const QCommandLineOption& option : command.options) {
            const QString name = option.names().first();
            options += u" --"_s + name;
            EXPECT_TRUE(b.Out().contains(u"--"_s + name));
            EXPECT_TRUE(manuals.filter(u"\n*--%1*"_s.arg(name)).size() == 2 &&
                        zsh.contains(u"--"_s + name) && fish.contains(u" -l %1"_s.arg(name)))
                << name.toStdString();
        }
        EXPECT_TRUE(options.isEmpty() ||
                    bash.contains(u" %1) options+=\"%2\""_s.arg(command.name, options)));
        EXPECT_EQ(manuals.filter(u"\n*%1*"_s.arg(command.name)).size(), 2);
    }
    for (const QString& completion : {bash, zsh, fish}) {
        EXPECT_TRUE(
            QString(completion).replace(u"\\\n"_s, u" "_s).simplified().contains(names.join(u' ')));
    }
    QStringList chips;
    for (const DeviceRecord& device : Catalogue()) {
        chips << PartNumber(device.name);
        const QString digits = chips.last().mid(5);
        b.Run({u"build-writer"_s, u"-jd"_s, digits});
        EXPECT_EQ(b.Json()["wiring"_L1].toArray().size(), 7) << digits.toStdString();
        EXPECT_TRUE(Source(u"docs/build-a-writer.md"_s).contains(digits.left(4)));
        for (const char* pages : {"docs/manual.md", "docs/manual.en.md"}) {
            EXPECT_TRUE(Source(QString::fromLatin1(pages)).contains(chips.last())) << pages;
        }
    }
    for (const QString& list : QStringList{bash, zsh, fish} + manuals) {
        EXPECT_TRUE(
            QString(list).remove(u'\\').remove(u',').simplified().contains(chips.join(u' ')));
    }
}

TEST(CommandLine, HelpsWithTheBitsOfTheDevice) {
    CliBench b;
    EXPECT_EQ(b.Run("-d 2343 fuses --help"), ExitStatus::Done);
    EXPECT_TRUE(b.Out().endsWith(
        u"AT90S2343 で指定できるビット:\n  RCEN = Enable | Disable\n  LOCK = full | write | none\n"_s))
        << b.Out().toStdString();
}

/// Nobody has chosen a port: the only one at which something is attached is taken.
TEST(CommandLine, TakesTheOnlyPortThereIs) {
    CliBench b;
    b.settings.values.remove(u"ComNox"_s);
    QDir(b.Path({})).mkdir(u"ports"_s);
    QFile::link(u"/dev/null"_s, b.Path(u"ports/com7"_s));
    EXPECT_EQ(b.Run("detect"), ExitStatus::Done) << b.Err().toStdString();
    EXPECT_TRUE(b.Out().contains(u"つながっているものを使います: COM7 ("_s) &&
                b.port.PortNumber() == 7);
    QFile::link(u"/dev/zero"_s, b.Path(u"ports/com9"_s));
    EXPECT_EQ(b.Outcome("detect"), "2 noPort");
    EXPECT_TRUE(b.Err().contains(u"\n  COM7  "_s) && b.Err().contains(u"\n  COM9  "_s));
}

/// A shell's variable that is not set never means "none".
TEST(CommandLine, RefusesWhatIsEmpty) {
    for (const CliCommand& command : CliCommands()) {
        QStringList lines = {u"\"\""_s,          u"a.hex \"\""_s,   u"--port \"\""_s,
                             u"--device \"\""_s, u"--trace \"\""_s, u"--trace="_s};
        for (const QCommandLineOption& option : command.options) {
            if (!option.valueName().isEmpty()) {
                lines << u"a.hex --%1 \"\""_s.arg(option.names().first());
            }
        }
        for (const QString& line : lines) {
            CliBench b;
            EXPECT_EQ(b.Outcome((command.name + u' ' + line).toStdString()), "2 wrongUse")
                << line.toStdString();
            EXPECT_TRUE(b.port.Calls().isEmpty());
        }
    }
}

/// Keys and codes are the same in every language.
TEST(CommandLine, SpeaksEnglishWhereItIsInstalled) {
    const auto english = InstallTexts(Language::English);
    CliBench b;
    EXPECT_EQ(b.Run("devices --help"), ExitStatus::Done);
    EXPECT_TRUE(
        b.Out().startsWith(u"Usage: tolvex-cli [options] devices\nList the devices.\n\n"
                           "Options:\n  -p, --port <COM5|PATH>  The port: a COM number"_s))
        << b.Out().toStdString();
    EXPECT_EQ(b.Outcome("verify @a.hex"), "1 differs");
    EXPECT_EQ(b.Json()["error"_L1]["message"_L1].toString(), u"The chip differs in 5 places."_s);
    EXPECT_EQ(b.Outcome("devices --json=1"), "2 wrongUse");
    EXPECT_EQ(b.Err(), u"tolvex-cli: --json takes no value.\n"_s);
}

/// An option goes before the environment, and that before what is stored.
TEST(CommandLine, ChoosesPortAndDevice) {
    // Options, TOLVEX_PORT and TOLVEX_DEVICE; the number that is opened, the one that is told (0
    // for a path), the path and the part.
    const std::tuple<const char*, const char*, const char*, const char*> cases[] = {
        {"", "", "", "1 1 COM1 AT90S2313"},
        {"--port COM5", "/a/board", "", "5 5 COM5 AT90S2313"},
        {"--port=20", "", "", "20 20 COM20 AT90S2313"},
        {"", "/a/board", "", "1 0 /a/board AT90S2313"},
        {"--port /a/board", "", "", "1 0 /a/board AT90S2313"},
        {"-d 8515 -p COM3", "", "", "3 3 COM3 AT90S8515"},
        {"--device at90s1200a", "", "AT90S8515", "1 1 COM1 AT90S1200A"},
        {"", "", "at90s8515", "1 1 COM1 AT90S8515"},
        {"--device AT90S1200~(外部ｸﾛｯｸ)", "", "", "1 1 COM1 AT90S1200"},
    };
    for (const auto& [options, portVariable, deviceVariable, chosen] : cases) {
        CliBench b;
        qputenv("TOLVEX_PORT", portVariable);
        qputenv("TOLVEX_DEVICE", deviceVariable);
        b.Outcome(std::string("detect ") + options);
        const QJsonObject json = b.Json(), port = json["port"_L1].toObject();
        const QString path = port["path"_L1].toString();
        const int number = port["number"_L1].toInt();
        EXPECT_EQ(u"%1 %2 %3 %4"_s.arg(b.port.PortNumber())
                      .arg(number)
                      .arg(path, json["device"_L1].toString()),
                  QString::fromUtf8(chosen).replace(u"COM%1"_s.arg(number),
                                                    b.comPorts.DevicePath(number)));
        const QString name = number != 0 ? u" COM%1"_s.arg(number) : u' ' + path;
        EXPECT_TRUE(json["messages"_L1][1].toString().endsWith(name));
    }
    CliBench b;
    qputenv("TOLVEX_DEVICE", "AT91");
    EXPECT_EQ(b.Run("detect"), ExitStatus::WrongUse);
    EXPECT_TRUE(b.Err().contains(u"TOLVEX_DEVICE"_s)) << b.Err().toStdString();
}

TEST(ListCommands, ShowWhatThereIs) {
    CliBench b;
    EXPECT_EQ(b.Run("devices"), ExitStatus::Done);
    EXPECT_TRUE(b.Out().startsWith(u"AT90S1200   Flash  512 word  EEPROM  64 byte  "_s));
    b.facts.permitted = false;
    EXPECT_EQ(b.Run("ports"), ExitStatus::Done);
    EXPECT_EQ(b.Out().count(u'\n'), 20);
    EXPECT_TRUE(b.Out().contains(u"\nCOM5  %1   権限なし"_s.arg(b.comPorts.DevicePath(5), -12)))
        << b.Out().toStdString();
    qputenv("TOLVEX_PORT", "COM0");
    EXPECT_EQ(b.Outcome("ports"), "0") << "a list needs no port";
    EXPECT_FALSE(b.Json()["ports"_L1][4]["permitted"_L1].toBool(true));
}

/// The table of the page: a row a wire, a column a package from the third on.
TEST(BuildWriterCommand, TellsTheWiringOfThePageAndHowToBurn) {
    const QList<QByteArray> page =
        Bytes(TOLVEX_SOURCE_DIR "/docs/build-a-writer.md"_L1).split('\n');
    const bool built = QFile::exists(TOLVEX_BIN_DIR "/../firmware/tolvex_writer.hex"_L1);
    const std::pair<const char*, int> cases[] = {
        {"AT90S2343", 3}, {"AT90S1200A", 4}, {"AT90S4433", 5}, {"AT90S8515", 6}, {"AT90S8535", 7}};
    CliBench b;
    for (const auto& [device, column] : cases) {
        b.Run({u"--json"_s, u"--device"_s, QString::fromLatin1(device), u"build-writer"_s});
        const QJsonArray wiring = b.Json()["wiring"_L1].toArray();
        ASSERT_EQ(wiring.size(), 7);
        for (const auto& wire : wiring) {
            const QByteArray start = "| " + wire["arduino"_L1].toString().toUtf8() + " | " +
                                     wire["chip"_L1].toString().toUtf8() + " | ";
            const auto row = std::ranges::find_if(
                page, [&start](const QByteArray& line) { return line.startsWith(start); });
            ASSERT_TRUE(row != page.end()) << start.data();
            const QByteArray pins = row->split('|')[column].trimmed().split('(')[0].trimmed();
            EXPECT_EQ(wire["pins"_L1].toString().toUtf8(), pins) << device << start.data();
        }
    }
    EXPECT_EQ(b.Outcome("--port COM13 build-writer @w.hex"), built ? "0" : "2 fileNotReadable");
    EXPECT_EQ(b.Json()["burn"_L1].toString(),
              built ? u"avrdude -p m328p -c arduino -P %1 -b 115200 -U flash:w:%2:i"_s.arg(
                          b.comPorts.DevicePath(13), b.Path(u"w.hex"_s))
                    : QString());
    EXPECT_EQ(b.Outcome("build-writer @w.hex"), built ? "2 fileExists" : "2 fileNotReadable");
}

TEST(CheckCommand, ReportsEveryFileByLine) {
    CliBench b;
    const QByteArray record = HexRecord(0x7FF, "\x01");
    b.File(u"good.hex"_s, record + kHexEnd);
    b.File(u"bad.EEP"_s, HexRecord(0, "\x02") + record);
    b.File(u"many.hex"_s, QByteArray("x\n").repeated(100'000) + kHexEnd);
    EXPECT_EQ(b.Run("check @good.hex"), ExitStatus::Done);
    EXPECT_EQ(b.Outcome("check @bad.EEP"), "2 badFile");
    EXPECT_EQ(Compact(b.Json()["checked"_L1][0]["findings"_L1][0].toObject()),
              R"({"address":2047,"fault":"outsideMemory","line":2})");
    EXPECT_EQ(b.Run("check @bad.EEP @good.hex @none @many.hex"), ExitStatus::WrongUse);
    EXPECT_TRUE(b.Out()
                    .remove(b.Path({}) + u'/')
                    .startsWith(u"bad.EEP: 2 行目: デバイスのメモリの外のデータです。 (0x7FF)\n"
                                "bad.EEP: 2 行目: エンドレコードがありません。\n"
                                "good.hex: OK (1 byte / AT90S2313 2048 byte)\n"
                                "ファイルを読めません (ありません): none\n"_s))
        << b.Out().toStdString();
    EXPECT_EQ(b.Out().count(u'\n'), 4 + 10) << "of many lines ten";
    EXPECT_TRUE(b.Out().contains(u"10 行目: 行頭がコロンではありません。 ほか 99990 行\n"_s));
}

TEST(Trace, HoldsEveryByteWithItsTime) {
    CliBench b;
    Spoil('V', FaultKind::HangUp)(b);
    EXPECT_EQ(b.Run("detect --trace @t"), ExitStatus::Refused);
    // A byte takes 521 us on the wire.
    EXPECT_EQ(Bytes(b.Path(u"t"_s)).toStdString(),
              "0 open COM1\n0 > 53\n1042 < 41\n1563 < 56\n2084 < 52\n2605 < 20\n3125 < 49\n"
              "3646 < 53\n4167 < 50\n4167 > 56\n5209 lost\n");
}

TEST(ProgressOnATerminal, IsOneLineThatFitsWithTheTimeLeft) {
    // 1024 words of 3 bytes take 1.6 s; half of it is left at 50 %.
    for (const auto& [columns, bar] : {std::pair{80, u" [###############...............]"_s},
                                       {64, u" [#######........]"_s},
                                       {48, u""_s},
                                       {30, u""_s}}) {
        CliBench b;
        b.columns = columns;
        EXPECT_EQ(b.Run("read @r.hex"), ExitStatus::Done);
        const QStringList steps = b.Err().split(u"\r\033[K"_s);
        EXPECT_EQ(steps.contains(u"Flash Program Memory Reading !%1  50% 残り 0:01"_s.arg(bar)),
                  columns > 30);
        for (const QString& step : steps) {
            EXPECT_LT(step.size() + step.count(QRegularExpression(u"[ぁ-龠]"_s)), columns);
        }
        EXPECT_TRUE(!b.Err().contains(u'\n') && steps.last().isEmpty()) << "wiped at the end";
    }
}

}  // namespace
}  // namespace tolvex::testing
