// SPDX-License-Identifier: MIT
#include "image/hex_reader.h"

#include <gtest/gtest.h>

#include <QTemporaryDir>
#include <map>

#include "image/hex_writer.h"
#include "tests/support/real_files.h"

namespace tolvex {
namespace {

using namespace Qt::StringLiterals;
using testing::Bytes;
using Cells = std::map<std::size_t, int>;

/// What the images hold before a read: no value of any case.
constexpr std::uint8_t kBackground = 0xEE;

template <typename Image>
Cells Stored(const Image& image) {
    Cells cells;
    for (std::size_t i = 0; i < image.size(); ++i) {
        if (image[i] != kBackground) {
            cells[i] = image[i];
        }
    }
    return cells;
}

struct ReaderTest : ::testing::Test {
    QTemporaryDir dir;
    QString path = dir.filePath(u"case.hex"_s);
    FlashImage flash;
    EepromImage eeprom;
    ErrorFlag flag;

    HexReadResult Code(const QByteArray& file) {
        testing::PutFile(path, file);
        flash.fill(kBackground);
        flag.Clear();
        return ReadCodeHex(path, flash, flag);
    }
    HexReadResult Data(const QByteArray& file) {
        testing::PutFile(path, file);
        eeprom.fill(kBackground);
        flag.Clear();
        return ReadDataHex(path, eeprom, flag);
    }
};

TEST_F(ReaderTest, Records) {
    const HexReadResult noColon = HexReadResult::NoColon;
    const struct {
        const char* what;
        QByteArray file;
        Cells data;  ///< what the data reader stores
        bool flagged = false;
        HexReadResult result = HexReadResult::Complete;
    } cases[] = {
        // clang-format off
        {"plain", ":0400000012345678E8\n:00000001FF\n", {{0, 0x12}, {1, 0x34}, {2, 0x56}, {3, 0x78}}},
        {"wrong checksum", ":010000001200\n", {{0, 0x12}}},
        {"no checksum", ":0100000012\n", {{0, 0x12}}},
        {"data after the end record", ":00000001FF\n:0100020042BB\n", {{2, 0x42}}},
        {"later record wins", ":0100000011EE\n:0100000022DD\n", {{0, 0x22}}},
        {"extended address is skipped", ":020000040001F9\n:0100000033CC\n", {{0, 0x33}}},
        {"types 2, 3, 5 and FF are skipped",
         ":0100000211EC\n:0100000311EB\n:0100000511E9\n:010000FF1100\n", {}},
        {"count 0", ":00000000FF\n", {}},
        {"lower-case data digits are 0", ":02000000a1FfFF\n", {{0, 0x01}, {1, 0xF0}}, true},
        {"lower-case type digit reads as data", ":0100000a12\n", {{0, 0x12}}, true},
        {"lower-case address digit is 0", ":0100a00012\n", {{0, 0x12}}, true},
        {"byte that is no ASCII is 0", ":0100000\xE9" "12\n", {{0, 0x12}}, true},
        {"count beyond the line takes the checksum, then 0",
         ":03000000AABB\n", {{0, 0xAA}, {1, 0xBB}, {2, 0}}, true},
        {"colon alone", ":\n:0100000012\n", {{0, 0x12}}, true},
        {"LF, CRLF, lone CR, no end", ":0100000001\n:0100010002\r\n:0100020003\r:0100030004",
         {{0, 1}, {1, 2}, {2, 3}, {3, 4}}},
        {"CR at the very end", ":0100000001\r", {{0, 1}}},
        {"empty file", "", {}},
        {"no colon at once", "hello\n:0100000012\n", {}, false, noColon},
        {"no colon later keeps what came before", ":0100000012\n0100010034\n:0100020056\n",
         {{0, 0x12}}, false, noColon},
        {"blank line stops", ":0100000012\n\n:0100010034\n", {{0, 0x12}}, false, noColon},
        {"blank before the colon stops", " :0100000012\n", {}, false, noColon},
        // clang-format on
    };
    for (const auto& c : cases) {
        EXPECT_EQ(Data(c.file), c.result) << c.what;
        EXPECT_EQ(Stored(eeprom), c.data) << c.what;
        EXPECT_EQ(flag.Failed(), c.flagged) << c.what;

        Cells swapped;
        for (const auto& [address, byte] : c.data) {
            swapped[address ^ 1] = byte;
        }
        EXPECT_EQ(Code(c.file), c.result) << c.what;
        EXPECT_EQ(Stored(flash), swapped) << c.what;
        EXPECT_EQ(flag.Failed(), c.flagged) << c.what;
    }
}

TEST_F(ReaderTest, TheLongestRecordIsTakenWhole) {
    const QByteArray record = ":FF000000" + QByteArray("5A").repeated(255);
    EXPECT_EQ(Data(record + QByteArray(10000, '7') + "\r\n:0101000011\r\n"),
              HexReadResult::Complete);
    const Cells stored = Stored(eeprom);
    EXPECT_EQ(stored.size(), 256U);
    EXPECT_EQ(stored.at(254), 0x5A);
    EXPECT_EQ(stored.at(256), 0x11);
    EXPECT_FALSE(flag.Failed());
}

TEST_F(ReaderTest, AByteBeyondTheImageEndsTheRead) {
    const HexReadResult failed = HexReadResult::Failed, complete = HexReadResult::Complete;
    EXPECT_EQ(Code(":02FFFE001122\n:0100000033"), complete);
    EXPECT_EQ(Stored(flash), (Cells{{65535, 0x11}, {65534, 0x22}, {1, 0x33}}));
    EXPECT_EQ(Code(":02FFFF001122\n:0100000033"), failed);
    EXPECT_EQ(Stored(flash), (Cells{{65534, 0x11}}));
    EXPECT_EQ(Data(":0207FF001122"), complete);
    EXPECT_EQ(Stored(eeprom), (Cells{{2047, 0x11}, {2048, 0x22}}));
    EXPECT_EQ(Data(":020800001122\n:0100000033"), failed);
    EXPECT_EQ(Stored(eeprom), (Cells{{2048, 0x11}}));
    EXPECT_EQ(Data(":01FFFF0011"), failed);
    EXPECT_EQ(Stored(eeprom), Cells{});
}

TEST_F(ReaderTest, FilesThatCannotBeRead) {
    flash.fill(kBackground);
    EXPECT_EQ(ReadCodeHex(QString(), flash, flag), HexReadResult::Complete);
    EXPECT_EQ(ReadCodeHex(dir.filePath(u"gone.hex"_s), flash, flag), HexReadResult::Failed);
    EXPECT_EQ(ReadCodeHex(dir.path(), flash, flag), HexReadResult::Failed);
    // Opens, but its first page can never be read.
    EXPECT_EQ(ReadCodeHex(u"/proc/self/mem"_s, flash, flag), HexReadResult::Failed);
    EXPECT_EQ(Stored(flash), Cells{});
    EXPECT_FALSE(flag.Failed());
}

struct WriterTest : ::testing::Test {
    QTemporaryDir dir;
    QString path = dir.filePath(u"out.hex"_s);
    MemoryImages images;

    QList<QByteArray> Lines() const { return testing::Lines(path); }
};

TEST_F(WriterTest, RecordsToTheByte) {
    images.flash[2] = 0x94;
    images.flash[3] = 0x0C;
    images.flash[1024] = 0;  // beyond the device
    ASSERT_EQ(WriteCodeHex(path, images.flash, 512), HexWriteResult::Written);
    const QByteArray erased(32, 'F');
    QList<QByteArray> lines = Lines();
    ASSERT_EQ(lines.size(), 65);
    EXPECT_EQ(lines[0], ":10000000FFFF0C94" + QByteArray(24, 'F') + "5E");
    EXPECT_EQ(lines[1], ":10001000" + erased + "F0");
    EXPECT_EQ(lines[63], ":1003F000" + erased + "0D");
    EXPECT_EQ(lines[64], ":00000001FF");

    images.eeprom[0] = 0x48;
    images.eeprom[1] = 0x65;
    std::fill_n(images.eeprom.begin() + 0xF0, 16, std::uint8_t{0});
    ASSERT_EQ(WriteDataHex(path, images.eeprom, 256), HexWriteResult::Written);
    lines = Lines();
    ASSERT_EQ(lines.size(), 17);
    EXPECT_EQ(lines[0], ":100000004865" + QByteArray(28, 'F') + "51");
    EXPECT_EQ(lines[15], ":1000F000" + QByteArray(32, '0') + "00");
    EXPECT_EQ(lines[16], ":00000001FF");
}

TEST_F(WriterTest, EverySizeReadsBackTheSame) {
    for (std::size_t i = 0; i < images.flash.size(); ++i) {
        images.flash[i] = static_cast<std::uint8_t>(i * 7 + i / 256);
        images.eeprom[i % images.eeprom.size()] = static_cast<std::uint8_t>(i * 11 + i / 256);
    }
    for (const int words : {4096, 2048, 512, 0}) {  // a shorter file replaces a longer one
        const int bytes = words / 8;
        MemoryImages expected = images, back;
        std::fill(expected.flash.begin() + 2 * words, expected.flash.end(), kErased);
        std::fill(expected.eeprom.begin() + bytes, expected.eeprom.end(), kErased);
        ErrorFlag flag;
        ASSERT_EQ(WriteCodeHex(path, images.flash, words), HexWriteResult::Written);
        EXPECT_EQ(ReadCodeHex(path, back.flash, flag), HexReadResult::Complete);
        EXPECT_TRUE(back.flash == expected.flash) << words;
        ASSERT_EQ(WriteDataHex(path, images.eeprom, bytes), HexWriteResult::Written);
        EXPECT_EQ(ReadDataHex(path, back.eeprom, flag), HexReadResult::Complete);
        EXPECT_TRUE(back.eeprom == expected.eeprom) << words;
        EXPECT_FALSE(flag.Failed());
    }
}

TEST_F(WriterTest, AReadOnlyFileRefusesAccessAndStays) {
    testing::PutFile(path, "kept");
    testing::MakeReadOnly(path);
    testing::OpenToAll(dir.path());
    const testing::OrdinaryUser user;
    if (!user.Bound()) {
        GTEST_SKIP() << "root can't give up its rights here";
    }
    EXPECT_EQ(WriteCodeHex(path, images.flash, 512), HexWriteResult::AccessRefused);
    EXPECT_EQ(Bytes(path), "kept");
}

TEST_F(WriterTest, EveryOtherFailureIsNoticed) {
    const HexWriteResult failed = HexWriteResult::Failed;
    EXPECT_EQ(WriteCodeHex(QString(), images.flash, 512), failed);
    EXPECT_EQ(WriteCodeHex(dir.path(), images.flash, 512), failed);
    EXPECT_EQ(WriteDataHex(dir.filePath(u"no/such.eep"_s), images.eeprom, 64), failed);
    const QString full = u"/dev/full"_s;
    if (!QFile::exists(full)) {
        GTEST_SKIP() << "no " << qPrintable(full);
    }
    // The end record alone stays in the buffer until the file is closed.
    EXPECT_EQ(WriteDataHex(full, images.eeprom, 0), failed);
    EXPECT_EQ(WriteCodeHex(full, images.flash, 4096), failed);
}

TEST(Samples, AreWhatTheReaderReads) {
    const QString sample = QStringLiteral(TOLVEX_SOURCE_DIR "/samples/blink.");
    MemoryImages images;
    ErrorFlag flag;
    EXPECT_EQ(ReadCodeHex(sample + u"hex"_s, images.flash, flag), HexReadResult::Complete);
    EXPECT_EQ(ReadDataHex(sample + u"eep"_s, images.eeprom, flag), HexReadResult::Complete);
    EXPECT_FALSE(flag.Failed());
    EXPECT_EQ(images.flash[0], 0xE0) << "ldi: the high byte of a word comes first";
    EXPECT_EQ(images.flash[42] << 8 | images.flash[43], 0xCFF3) << "the loop's jump is the end";
    EXPECT_EQ(std::count(images.flash.begin() + 44, images.flash.end(), kErased), 65537 - 44);
    EXPECT_EQ(images.eeprom[0], 50);
    EXPECT_EQ(images.eeprom[1], kErased);
    // The reader forgives wrong checksums; other programs don't.
    for (const QByteArray& line : Bytes(sample + u"hex"_s).trimmed().split('\n')) {
        int sum = 0;
        for (const char byte : QByteArray::fromHex(line.trimmed().mid(1))) {
            sum += static_cast<std::uint8_t>(byte);
        }
        EXPECT_EQ(sum % 256, 0) << line.constData();
    }
}

}  // namespace
}  // namespace tolvex
