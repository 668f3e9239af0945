// SPDX-License-Identifier: MIT
// A public decoder reads the record of the lines: what it knows of the chips' protocol comes from
// nobody here.
#include <QProcess>
#include <QStandardPaths>

#include "tests/firmware/firmware_bench.h"

namespace tolvex::testing {
namespace {

/// What the decoders say of the chip's bus and of the bytes from the PC.
QString Decode(const QString& path) {
    QProcess decoder;
    decoder.start(u"sigrok-cli"_s,
                  {u"-I"_s, u"vcd:downsample=100"_s, u"-i"_s, path, u"-P"_s,
                   u"spi:clk=SCK:mosi=MOSI:miso=MISO:cs=RESET:cs_polarity=active-low,avr_isp"_s,
                   u"-P"_s, u"uart:rx=RXD:baudrate=19200"_s, u"-A"_s, u"avr_isp,uart=rx-data"_s});
    EXPECT_TRUE(decoder.waitForFinished(60'000)) << decoder.errorString().toStdString();
    return QString::fromUtf8(decoder.readAllStandardOutput());
}

TEST(VcdFile, IsReadByAPublicDecoderWithoutAWarning) {
    if (QStandardPaths::findExecutable(u"sigrok-cli"_s).isEmpty()) {
        GTEST_SKIP() << "sigrok-cli is not installed";
    }
    for (const ChipModel& model : ChipModels()) {
        const QString part = model.name.toString().section(u' ', 0, 0).section(u'A', 0, 1);
        SCOPED_TRACE(part.toStdString());
        const QTemporaryDir folder;
        const QString path = folder.filePath(u"record.vcd"_s);
        SimulatedChip chip(model);
        {
            FirmwareSocket real(&chip);
            ASSERT_EQ(real.board.Record(path), std::nullopt);
            for (const char* command : {"P", "s", "e", "l\xF9", "L"}) {
                real.Ask(command, *command == 's' ? 3 : 1);
            }
        }
        const QString words = Decode(path);
        const bool known =
            QStringList{u"AT90S1200"_s, u"AT90S2313"_s, u"AT90S4414"_s, u"AT90S8515"_s}.contains(
                part);
        EXPECT_TRUE(words.contains(u"Programming enable"_s));
        EXPECT_EQ(words.contains(u"Device: Atmel "_s + part), known) << words.toStdString();
        EXPECT_EQ(words.contains(u"Chip erase"_s), known);
        EXPECT_EQ(words.contains(u"Warning"_s), part == u"AT90S1200"_s) << words.toStdString();
        EXPECT_TRUE(words.contains(u"uart-1: 73\n"_s)) << words.toStdString();
    }
}

}  // namespace
}  // namespace tolvex::testing
