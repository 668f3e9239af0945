// SPDX-License-Identifier: MIT
#include "image/hex_reader.h"

#include <gtest/gtest.h>

#include <QBuffer>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <random>

#include "image/hex_check.h"
#include "image/hex_writer.h"
#include "tests/support/file_troubles.h"
#include "tests/support/real_files.h"

namespace tolvex::testing {
namespace {

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
                    HexReadResult (*read)(const QString&, Image&, ErrorFlag&, const ReadProgress&),
                    std::size_t swap) {
        PutFile(path, file);
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
    MakeNoFile(fifo);
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
    OpenToAll(dir.path());
    const OrdinaryUser user;
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
        PutFile(raw, bytes);
        QProcess::execute(u"srec_cat"_s, {raw, u"-binary"_s, u"-output"_s, theirs, u"-intel"_s,
                                          u"-address-length=2"_s, u"-line-length=44"_s});
        const QByteArray expected = Bytes(theirs).replace("\n", "\r\n");
        EXPECT_EQ(ReadCodeHex(theirs, images.flash, flag), HexReadResult::Complete);
        for (std::size_t cell = 0; cell < static_cast<std::size_t>(size); ++cell) {
            swapped += static_cast<char>(images.flash[cell ^ 1]);
        }
        EXPECT_EQ(swapped, bytes) << "the image has a word's high byte first";
        EXPECT_EQ(WriteCodeHex(path, images.flash, size / 2), HexWriteResult::Written);
        EXPECT_EQ(Bytes(path), expected);
        if (size <= 512) {
            EXPECT_EQ(ReadDataHex(theirs, images.eeprom, flag), HexReadResult::Complete);
            EXPECT_EQ(WriteDataHex(path, images.eeprom, size), HexWriteResult::Written);
            EXPECT_EQ(Bytes(path), expected);
        }
    }
    for (const char* sample : {"blink.hex", "blink.eep"}) {
        const QString file = QStringLiteral(TOLVEX_SOURCE_DIR "/samples/") + QLatin1String(sample);
        EXPECT_EQ(QProcess::execute(u"srec_info"_s, {file, u"-intel"_s}), 0) << sample;
    }
}

TEST_F(WriterTest, NoFailureStaysHidden) {
    const QString halfACharacter = path + QChar(0xD842);
    EXPECT_EQ(WriteCodeHex(halfACharacter, images.flash, 512), HexWriteResult::Written);
    EXPECT_EQ(WriteCodeHex(dir.filePath(u"no/such"_s), images.flash, 512), HexWriteResult::Failed);
    const FullDisk full(10);
    if (!full.Bound()) {
        GTEST_SKIP() << "no disk can be made full here";
    }
    // The end record alone stays in the buffer until the file is closed.
    EXPECT_EQ(WriteDataHex(path, images.eeprom, 0), HexWriteResult::Failed);
    EXPECT_EQ(WriteCodeHex(path, images.flash, 4096), HexWriteResult::Failed);
}

HexReport Check(QByteArray text) {
    QBuffer file(&text);
    file.open(QIODevice::ReadOnly);
    return CheckHex(file, 64);
}

TEST(HexCheck, NamesEachFaultWithItsLine) {
    const QByteArray end = ":00000001FF\r\n", data = ":020000001234B8\r\n";
    // What is found has its line and its first address.
    const std::tuple<const char*, QByteArray, QString> cases[] = {
        {"CR alone", ":020000001234B8\r:00000001FF\r", {}},
        {"up to the last byte", ":01003F0012AE\r\n" + end, {}},
        {"no colon", data.mid(1) + end, u"noColon 1 -1"_s},
        {"blank line", data + "\r\n" + end, u"noColon 2 -1"_s},
        {"lower case", ":01000000ab54\r\n" + end, u"lowerCase 1 -1"_s},
        {"blank at the end", ":020000001234B8 \r\n" + end, u"digit 1 -1"_s},
        {"too long", ":02000000123456B8\r\n" + end, u"length 1 -1"_s},
        {"endless", ':' + QByteArray(100'000, '0') + "\r\n" + end, u"length 1 -1"_s},
        {"checksum", ":020000001234B9\r\n" + end, u"checksum 1 -1"_s},
        {"type 6", ":00000006FA\r\n" + end, u"unknownType 1 -1"_s},
        {"segment base, with data inside it", ":020000020001FB\r\n" + data + end,
         u"baseAddress 1 -1"_s},
        {"overlap", data + ":0100010034CA\r\n" + end, u"overlap 2 1"_s},
        {"outside", ":02003F00123479\r\n" + end, u"outsideMemory 1 64"_s},
        {"early end", end + data, u"earlyEnd 1 -1"_s},
        {"missing end", data, u"missingEnd 1 -1"_s},
    };
    for (const auto& [what, text, expected] : cases) {
        const HexReport report = Check(text);
        QStringList found;
        for (const HexFinding& finding : report.findings) {
            found << u"%1 %2 %3"_s.arg(HexFaultName(finding.fault))
                         .arg(finding.line)
                         .arg(finding.address);
        }
        EXPECT_EQ(found.join(u'\n'), expected) << what;
    }
    const HexReport overlapping = Check(data + ":020001001234B7\r\n" + end);
    EXPECT_EQ(overlapping.records, 2);
    EXPECT_EQ(overlapping.bytes, 3) << "each address once";
}

}  // namespace
}  // namespace tolvex::testing
