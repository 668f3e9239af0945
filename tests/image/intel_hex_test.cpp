// SPDX-License-Identifier: MIT
#include "image/hex_reader.h"

#include <gtest/gtest.h>

#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <random>

#include "image/hex_writer.h"
#include "tests/support/real_files.h"

namespace tolvex {
namespace {

using namespace Qt::StringLiterals;

struct ReaderTest : ::testing::Test {
    QTemporaryDir dir;
    QString path = dir.filePath(u"case.hex"_s);
    FlashImage flash;
    EepromImage eeprom;
    ErrorFlag flag;

    /// What a file leaves in an image, in the order of the file's addresses, and how it ended:
    /// "0=12 1=34 no colon flag". `swap` is 1 where the image has each pair the other way round.
    template <typename Image>
    QByteArray Read(const QByteArray& file, Image& image,
                    HexReadResult (*read)(const QString&, Image&, ErrorFlag&, const Breath&),
                    std::size_t swap) {
        testing::PutFile(path, file);
        image.fill(0xEE);  // no value of any case
        flag.Clear();
        const HexReadResult result = read(path, image, flag, {});
        QString text;
        for (std::size_t address = 0; address < image.size() - swap; ++address) {
            if (const int cell = image[address ^ swap]; cell != 0xEE) {
                text += QString::number(address, 16) + u'=' + HexByte(cell) + u' ';
            }
        }
        text += result == HexReadResult::NoColon ? u"no colon "_s : QString();
        text += result == HexReadResult::Failed ? u"failed "_s : QString();
        return (text + (flag.Failed() ? u"flag "_s : QString())).toLatin1();
    }
    QByteArray Code(const QByteArray& file) { return Read(file, flash, ReadCodeHex, 1); }
    QByteArray Data(const QByteArray& file) { return Read(file, eeprom, ReadDataHex, 0); }
};

TEST_F(ReaderTest, Records) {
    const std::tuple<const char*, QByteArray, QByteArray> cases[] = {
        // clang-format off
        {"plain", ":0400000012345678E8\n:00000001FF\n", "0=12 1=34 2=56 3=78 "},
        {"wrong checksum", ":010000001200\n", "0=12 "},
        {"data after the end record", ":00000001FF\n:0100020042BB\n", "2=42 "},
        {"later record wins", ":0100000011EE\n:0100000022DD\n", "0=22 "},
        {"extended address is skipped", ":020000040001F9\n:0100000033CC\n", "0=33 "},
        {"lower-case data digits are 0", ":02000000a1FfFF\n", "0=01 1=F0 flag "},
        {"count beyond the line takes the checksum, then 0", ":03000000AABB\n", "0=AA 1=BB 2=00 flag "},
        {"LF, CRLF, lone CR, no end", ":0100000001\n:0100010002\r\n:0100020003\r:0100030004", "0=01 1=02 2=03 3=04 "},
        {"no colon later keeps what came before", ":0100000012\n0100010034\n:0100020056\n", "0=12 no colon "},
        {"255 bytes, and an endless line", ":FF040000" + QByteArray("EE").repeated(254) + "5A" + QByteArray(9999, '7') +
                                           "\n:0101000011\n", "100=11 4fe=5A "},
        // clang-format on
    };
    for (const auto& [what, file, read] : cases) {
        EXPECT_EQ(Data(file), read) << what;
        EXPECT_EQ(Code(file), read) << what;
        EXPECT_EQ(flash.back(), 0xEE) << "never filled from a file";
    }
}

TEST_F(ReaderTest, AByteBeyondTheImageEndsTheRead) {
    EXPECT_EQ(Code(":02FFFE001122\n:0100000033"), "0=33 fffe=11 ffff=22 ");
    EXPECT_EQ(Code(":02FFFF001122\n:0100000033"), "ffff=11 failed ");
    EXPECT_EQ(Data(":0207FF001122"), "7ff=11 800=22 ");
    EXPECT_EQ(Data(":020800001122\n:0100000033"), "800=11 failed ");
    EXPECT_EQ(Data(":01FFFF0011"), "failed ");
}

TEST_F(ReaderTest, OnlyRegularFilesAreRead) {
    const QString fifo = dir.filePath(u"fifo"_s), link = dir.filePath(u"link"_s);
    testing::MakeFifo(fifo);
    QFile::link(path, link);
    Code(":0100000012\n");
    EXPECT_EQ(ReadCodeHex(QString(), flash, flag), HexReadResult::Complete);
    for (const QString& bad : {dir.path(), fifo, u"/gone.hex"_s, QString()}) {
        EXPECT_FALSE(FileExists(bad)) << bad.toStdString();
        EXPECT_TRUE(bad.isEmpty() || ReadCodeHex(bad, flash, flag) == HexReadResult::Failed);
    }
    // Opens, but its first page can never be read.
    EXPECT_EQ(ReadCodeHex(u"/proc/self/mem"_s, flash, flag), HexReadResult::Failed);
    EXPECT_EQ(flash[1], 0x12) << "untouched";
    EXPECT_TRUE(FileExists(link));
    EXPECT_EQ(ReadDataHex(link, eeprom, flag), HexReadResult::Complete);
    QFile::setPermissions(path, QFile::WriteOwner);
    testing::OpenToAll(dir.path());
    const testing::OrdinaryUser user;
    EXPECT_TRUE(!user.Bound() || !FileExists(path)) << "there, but not to be opened";
}

struct WriterTest : ::testing::Test {
    QTemporaryDir dir;
    QString path = dir.filePath(u"out.hex"_s), raw = dir.filePath(u"raw"_s);
    MemoryImages images;
    ErrorFlag flag;
};

/// srec_cat writes what the program writes: records of 16 bytes and an end record.
TEST_F(WriterTest, AnIndependentToolMakesTheSameFiles) {
    if (QStandardPaths::findExecutable(u"srec_cat"_s).isEmpty()) {
        GTEST_SKIP() << "srec_cat (Debian: srecord) is not installed";
    }
    const QString theirs = dir.filePath(u"theirs"_s);
    std::mt19937 random(1);
    for (const int size : {64, 512, 8192}) {
        QByteArray bytes(size, '\0'), swapped;
        std::ranges::generate(bytes, [&random] { return static_cast<char>(random()); });
        testing::PutFile(raw, bytes);
        QProcess::execute(u"srec_cat"_s, {raw, u"-binary"_s, u"-output"_s, theirs, u"-intel"_s,
                                          u"-address-length=2"_s, u"-line-length=44"_s});
        const QByteArray expected = testing::Bytes(theirs).replace("\n", "\r\n");
        EXPECT_EQ(ReadCodeHex(theirs, images.flash, flag), HexReadResult::Complete);
        for (std::size_t cell = 0; cell < static_cast<std::size_t>(size); ++cell) {
            swapped += static_cast<char>(images.flash[cell ^ 1]);
        }
        EXPECT_EQ(swapped, bytes) << "the image has a word's high byte first";
        EXPECT_EQ(WriteCodeHex(path, images.flash, size / 2), HexWriteResult::Written);
        EXPECT_EQ(testing::Bytes(path), expected);
        if (size <= 512) {
            EXPECT_EQ(ReadDataHex(theirs, images.eeprom, flag), HexReadResult::Complete);
            EXPECT_EQ(WriteDataHex(path, images.eeprom, size), HexWriteResult::Written);
            EXPECT_EQ(testing::Bytes(path), expected);
        }
    }
    for (const char* sample : {"blink.hex", "blink.eep"}) {
        const QString file = QStringLiteral(TOLVEX_SOURCE_DIR "/samples/") + QLatin1String(sample);
        EXPECT_EQ(QProcess::execute(u"srec_info"_s, {file, u"-intel"_s}), 0) << sample;
    }
}

TEST_F(WriterTest, EveryFailureIsNoticed) {
    const HexWriteResult failed = HexWriteResult::Failed, written = HexWriteResult::Written;
    const QString fifo = dir.filePath(u"fifo"_s), halfACharacter = path + QChar(0xD842);
    testing::MakeFifo(fifo);
    for (const QString& bad : {QString(), dir.path(), dir.filePath(u"no/such.eep"_s), fifo}) {
        EXPECT_EQ(WriteCodeHex(bad, images.flash, 512), failed) << bad.toStdString();
    }
    EXPECT_EQ(WriteCodeHex(halfACharacter, images.flash, 512), written) << "and no exception";
    const testing::FullDisk full(10);
    // The end record alone stays in the buffer until the file is closed.
    EXPECT_EQ(WriteDataHex(path, images.eeprom, 0), failed);
    EXPECT_EQ(WriteCodeHex(path, images.flash, 4096), failed);
}

}  // namespace
}  // namespace tolvex
